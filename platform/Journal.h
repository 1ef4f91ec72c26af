#pragma once

#include "Geometry.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace platform {

/// What happens inside the phone, in order, for whoever watches: a driver, an inspector, a test.
struct JournalEntry {
    enum class Kind {
        Touch, ///< `name` is the phase, `detail` the view's class, `place` where in the window.
        Action, ///< A control's, or a row's: `name` is the selector, `detail` the target's class.
        Paint, ///< `name` is the class whose `drawRect` ran.
        Display, ///< A pass is over that painted or composed something; its paints came before.
        Write, ///< `name` is the device's path, below /private/var where it lies there; `succeeded` tells.
        Notification, ///< `name` was posted; `detail` lists what came along: "object", "user info",
                      ///< "immediately".
        Toggle, ///< The switch `name` was set to `state`.
    };

    Kind kind;
    std::string name;
    std::string detail = {};
    bool succeeded = true;
    long state = 0;
    CGPoint place = {};
};

/// One for the process. Recording costs next to nothing while nobody listens.
class Journal {
public:
    using Listener = std::function<void(const JournalEntry&)>;

    static Journal& shared();

    /// Returns a number to stop listening with.
    int listen(Listener);
    void stop(int listener);
    bool isHeard() const;
    void record(const JournalEntry&) const;

private:
    std::vector<std::pair<int, Listener>> _listeners;
    int _next = 1;
};

}
