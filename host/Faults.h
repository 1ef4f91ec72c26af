#pragma once

#include <functional>
#include <span>
#include <string_view>

namespace host {

/// What can go wrong with the preference file while a pane runs.
enum class Fault {
    Write, ///< The next file that is written below the device's root can't be: the disk is full.
    Vanish, ///< The preference file goes.
    ReadOnly, ///< To the phone, the file and its folder are as those of somebody else.
    HalfWritten, ///< Another process has been stopped while it wrote: the first half of the file is left.
    Off, ///< Undoes what can be undone: writable again, and no failure is to come.
};

struct FaultWord {
    std::string_view word; ///< As scripts call it.
    Fault fault;
    std::string_view summary; ///< A few words, for a button or a menu.
};
std::span<const FaultWord> faultWords();

/// Makes faults on demand, for this process's device, below the pane: what it calls fails as the system would
/// let it fail. One for the process, as there is one device.
class Faults {
public:
    static Faults& current();

    /// At once. Throws std::runtime_error with one sentence when there is no file that could vanish or be
    /// halved; nothing has changed then.
    void make(Fault);

    /// Is told of each that was made; empty for nobody.
    void setListener(std::function<void(const FaultWord&)>);

    bool nextWriteFails() const { return _nextWriteFails; }
    bool isReadOnly() const { return _isReadOnly; }

private:
    Faults() = default;
    void makeHappen(Fault);
    void standBetween();
    void stepAside();
    struct Calls;

    std::function<void(const FaultWord&)> _listener;
    bool _nextWriteFails = false;
    bool _isReadOnly = false;
    bool _standsBetween = false;
};

}
