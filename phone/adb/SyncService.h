// "sync:": adb's file transfer. Requests are four letters, a little-endian length and a name; a
// file comes as DATA pieces and DONE.
#pragma once

#include <cstdint>
#include <string>

#include "phone/Handset.h"
#include "phone/adb/Service.h"

namespace quorvi::phone {

// Longest name in a request and longest piece of a file, in bytes, as adb fixes them.
inline constexpr std::size_t kMaxSyncName = 1024;
inline constexpr std::size_t kMaxSyncPiece = 64 * 1024;

class SyncService : public Service {
  public:
    SyncService(Handset& handset, Sink& sink) : handset_(handset), sink_(sink) {}
    void OnBytes(std::span<const std::byte> bytes) override;

  private:
    enum class Step { request, file, over };

    // Each takes what it can off pending_; false when more bytes are needed.
    bool TakeRequest();
    bool TakeFilePiece();

    void Answer(std::uint32_t id, std::string_view name);
    void Stat(const std::string& path);
    void List(const std::string& path);
    void Receive(const std::string& path);
    void BeginSend(std::string_view nameAndMode);
    void EndSend(std::uint32_t modified);
    void Fail(std::string_view why);
    void Drop(std::size_t count);

    Handset& handset_;
    Sink& sink_;
    Bytes pending_;
    Step step_ = Step::request;
    std::string path_;
    StoredFile file_;
};

}  // namespace quorvi::phone
