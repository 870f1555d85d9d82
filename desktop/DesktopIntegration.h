// What ties the program to the user's desktop: the start with it, the shortcut, and the links of
// its own scheme.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "base/Places.h"

namespace quorvi {

// No failure is reported: what could not be done is not there afterwards. Touches files, so it is
// used on a worker; one call at a time.
class DesktopIntegration {
  public:
    virtual ~DesktopIntegration() = default;

    // Whether the desktop starts the program, by the very command that SetAutoRun would write now,
    // without regard to the case of letters. A program that was moved is not started by it.
    [[nodiscard]] virtual bool AutoRuns() const = 0;
    // Writes the command (the program's path in double quotes, a blank, /hide) or takes it away; no
    // error when there is none.
    virtual void SetAutoRun(bool on) = 0;
    // Puts a shortcut on the desktop, in the place of one that is there.
    virtual void MakeShortcut() = 0;
    // Has links of the scheme "quorvi" start the program, with the link as its argument.
    virtual void RegisterProtocol() = 0;
};

// The same on a desktop that keeps to freedesktop.org's files.
class FreedesktopIntegration : public DesktopIntegration {
  public:
    // `desktop` is where shortcuts lie: see DesktopFolder. `iconSvg` is the program's icon, a whole
    // SVG file.
    FreedesktopIntegration(Places places, std::filesystem::path desktop, std::string iconSvg);

    [[nodiscard]] bool AutoRuns() const override;
    void SetAutoRun(bool on) override;
    void MakeShortcut() override;
    void RegisterProtocol() override;

    [[nodiscard]] std::filesystem::path AutoRunFile() const;
    [[nodiscard]] std::filesystem::path ShortcutFile() const;
    [[nodiscard]] std::filesystem::path ProtocolFile() const;

  private:
    [[nodiscard]] std::string AutoRunCommand() const;
    // Writes the icon and gives what a launcher calls it.
    [[nodiscard]] std::string InstallIcon() const;

    Places places_;
    std::filesystem::path desktop_;
    std::string iconSvg_;
};

}  // namespace quorvi
