// Walks a reply of any bytes, whole or cut behind any claim of a length, with any order of fields.
//
// Input: u32 the length claimed; u8 count of fields in a record; a byte for each field's form; the
// payload as far as it came.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "agent/Reply.h"
#include "agent/Wire.h"

namespace {

using quorvi::ReplyBuffer;
using quorvi::ReplyCursor;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

// Touches each byte, so that the sanitizer sees where they lie.
void Read(std::span<const std::byte> bytes, const ReplyBuffer& reply) {
    Require(bytes.empty() || (bytes.data() >= reply.Data() &&
                              bytes.data() + bytes.size() <= reply.Data() + reply.Received()));
    volatile unsigned sum = 0;
    for (const std::byte byte : bytes) {
        sum = sum + static_cast<unsigned>(byte);
    }
}

void TakeField(ReplyCursor& cursor, std::uint8_t form, const ReplyBuffer& reply) {
    switch (form % 8) {
        case 0:
            static_cast<void>(cursor.TakeUInt32());
            break;
        case 1:
            static_cast<void>(cursor.TakeUInt64());
            break;
        case 2:
            static_cast<void>(cursor.TakeText());
            break;
        case 3:
            Read(cursor.TakeBlob().value_or(std::span<const std::byte>()), reply);
            break;
        case 4:
            cursor.SkipText();
            break;
        case 5:
            cursor.SkipBytes(form / 8);
            break;
        case 6:
            // A skip over as many bytes as a word of the reply says.
            cursor.SkipBytes(cursor.TakeUInt32());
            break;
        default: {
            std::byte scratch[32];
            cursor.TakeBytes(scratch, form / 8);
            break;
        }
    }
    Require(cursor.Offset() <= reply.Length());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 5) {
        return 0;
    }
    std::span<const std::uint8_t> input(data, size);
    ReplyBuffer reply(quorvi::ReadUInt32(reinterpret_cast<const std::byte*>(data)));
    const std::size_t fields = input[4];
    input = input.subspan(5);
    if (input.size() < fields || reply.Length() == 0) {
        return 0;
    }
    const auto forms = input.first(fields);
    const auto payload =
        input.subspan(fields, std::min<std::size_t>(input.size() - fields, reply.Length()));
    if (!payload.empty()) {
        std::memcpy(reply.Room().data(), payload.data(), payload.size());
    }
    reply.Commit(payload.size());

    ReplyCursor cursor(reply);
    do {
        const std::size_t before = cursor.Offset();
        for (const std::uint8_t form : forms) {
            TakeField(cursor, form, reply);
        }
        if (cursor.Offset() == before) {
            break;  // a record of no bytes is no record of any command
        }
    } while (!cursor.AtEnd());
    return 0;
}
