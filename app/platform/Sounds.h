// The sounds of the link.
#pragma once

namespace quorvi {

// By their resource numbers.
enum class Sound : int { linkUp = 656, removal = 657 };

class Sounds {
  public:
    virtual ~Sounds() = default;
    // Plays to its end and returns at once; silent on a machine without a sound device. The
    // window's thread.
    virtual void Play(Sound sound) = 0;
};

}  // namespace quorvi
