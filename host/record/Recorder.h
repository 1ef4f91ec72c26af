#pragma once

#include "Gesture.h"
#include "host/PhoneObserver.h"
#include "RecordFile.h"
#include "ScrollWatch.h"

#include <memory>
#include <string>

namespace host {

/// Writes down what a person does to a phone as a script that the driver replays to the same preferences, the
/// same views and the same picture. Whatever enters the phone is recorded, whoever sends it. A step is in the
/// file before it takes effect, so a recording that ends in a crash leads to it; a touch that is over is then
/// summed up.
class Recorder final : public PhoneObserver {
public:
    /// Records from now on, at the end of the file; both must outlive it. It settles the phone around every
    /// input, as the driver does.
    Recorder(Phone&, RecordFile&);
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Ends the script with a digest of what there is now, which its replay prints as well. Nothing is
    /// recorded any more. False when not all of it is in the file.
    bool finish();

    void inputBegins() override;
    void inputEnds() override;
    void touchArrives(const platform::UITouch&) override;
    void keyArrives(std::string_view name) override;
    void textWillChange(platform::UITextField&) override;
    void textChanged(platform::UITextField&) override;
    void editingEnds() override;
    void goingBack() override;
    void endingEditing() override;
    void makingPagesAnew() override;
    void showingPageAgain() override;
    void storingPreference(const std::string& key, const std::optional<platform::PropertyValue>&) override;
    void deletingPreferences() override;
    void loadingBundleAnew() override;
    void loadedBundleAnew(const std::optional<std::string>& failure) override;
    void phoneSettled() override;

private:
    /// A line that the next may become part of, as long as it is the last.
    struct OpenLine {
        std::size_t begin = 0;
        std::size_t end = 0; ///< 0 for none.
    };

    void write(std::string_view line);
    /// Something that is done to a page: of an error page, which a replay does not come to, nothing is said.
    void writeForPage(std::string_view line);
    void writeOfErrorPage();
    void writeText(const TextCommand&, platform::UITextField&);
    void writeScroll(const ScrollWatch::Change&);
    bool isLast(const OpenLine& line) const { return line.end != 0 && line.end == _file.size(); }
    OpenLine replaceLast(std::size_t begin, std::string_view text);

    void writeEnvironment();
    void stop();

    Phone& _phone;
    RecordFile& _file;
    int _listener = 0;
    int _environmentListener = 0;
    int _whenPagesGo = 0;
    std::vector<std::string> _environment; ///< In words, as the rules have them.
    std::string
        _releaseLater; ///< The step of a touch that was taken from its view, and means nothing any more.
    int _depth = 0;

    std::unique_ptr<Gesture> _gesture;
    std::size_t _gestureBegin = 0; ///< In the file.
    std::size_t _reloadBegin = 0; ///< The same.

    FieldState _fieldBefore;
    OpenLine _typing;
    std::string _typed;
    qsizetype _lengthBeforeTyping = 0;
    const platform::UIView* _typedInto = nullptr; ///< Only to be compared.
    platform::CGRect _typedAt;

    ScrollWatch _watch;
    OpenLine _scrolling;
    const platform::UIScrollView* _scroller = nullptr; ///< Only to be compared.
    platform::CGPoint _scrolledFrom;
};

}
