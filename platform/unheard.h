// Silence, for what is made anew and has told all it had to tell before.
#pragma once

namespace verlink::platform {

/// While one exists nothing is told, neither a failure nor a message.
class Unheard {
   public:
    Unheard();
    ~Unheard();
    Unheard(const Unheard&) = delete;
    Unheard& operator=(const Unheard&) = delete;
    static bool On();
};

}  // namespace verlink::platform
