#include "RecordTest.h"

#include "host/driver/ViewSearch.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIScrollView.h"
#include "tests/host/Conversation.h"

#include <fstream>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <sstream>

using namespace platform;

namespace {

void stopAll(UIView& view)
{
    auto* scroller = dynamic_cast<UIScrollView*>(&view);
    if (scroller && scroller->isDecelerating())
        scroller->setContentOffset(scroller->contentOffset());
    for (const auto& child : view.subviews())
        stopAll(*child);
}

void glideAll(UIView& view, double seconds)
{
    if (auto* scroller = dynamic_cast<UIScrollView*>(&view))
        scroller->advance(seconds);
    for (const auto& child : view.subviews())
        glideAll(*child, seconds);
}

}

RecordTest::~RecordTest()
{
    _recorder.reset();
    _file.reset();
}

void RecordTest::record(const host::PhoneOptions& options)
{
    recorded = options;
    open(options);
    const auto file = folder.path() / "recording.txt";
    _file = std::make_unique<host::RecordFile>(file.string(), "# A recording.\n");
    _recorder = std::make_unique<host::Recorder>(*phone, *_file);
}

host::PhoneOptions RecordTest::optionsWithGallery() const
{
    auto result = options();
    result.bundle = GALLERY_BUNDLE;
    return result;
}

std::string RecordTest::script() const
{
    std::ifstream file(folder.path() / "recording.txt");
    std::string text;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with('#'))
            text += line + '\n';
    }
    return text;
}

std::string RecordTest::wholeFile() const
{
    std::ifstream file(folder.path() / "recording.txt");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

host::Digest RecordTest::digest()
{
    phone->settle();
    return host::digestOf(window());
}

host::Digest RecordTest::replay()
{
    const TemporaryFolder other;
    QStringList words { "drive", "--root", QString::fromStdString((other.path() / "root").string()), "--size",
        QString("%1x%2").arg(recorded.size.width).arg(recorded.size.height), "--scale",
        QString::number(recorded.scale), "--locale", QString::fromStdString(recorded.locale), "--timezone",
        QString::fromStdString(recorded.timeZone), "--now", QString::fromStdString(*recorded.now) };
    if (!recorded.bundle.empty())
        words << "--bundle" << QString::fromStdString(recorded.bundle);
    const auto run = runHost(words, QByteArray::fromStdString(script() + "digest\n"));
    EXPECT_EQ(run.status, 0) << run.output.right(400).toStdString() << run.errors.toStdString();
    const auto answers = run.answers();
    if (answers.isEmpty())
        return {};
    const auto& last = answers.last();
    const auto preferences = last["prefs"];
    return { preferences.isNull() ? std::nullopt : std::optional(preferences.toString().toStdString()),
        last["tree"].toString().toStdString(), last["picture"].toString().toStdString() };
}

void RecordTest::expectSameReplay()
{
    const auto now = digest(); // The phone settles, and what waited for that is recorded.
    EXPECT_EQ(replay(), now) << script();
}

CGPoint RecordTest::middleOf(const std::string& text) const
{
    const auto views = host::viewsShowing(window(), text);
    EXPECT_FALSE(views.empty()) << text;
    return views.empty() ? CGPoint {} : host::middleInWindow(*views.front());
}

CGPoint RecordTest::middleOfClass(const std::string& className) const
{
    const auto* view = host::firstViewOfClass(window(), className);
    EXPECT_TRUE(view) << className;
    return view ? host::middleInWindow(*view) : CGPoint {};
}

void RecordTest::press(CGPoint point)
{
    window().touchBegan(point, time);
    stopAll(window()); // As the window does when a control took the touch.
}

void RecordTest::move(CGPoint point)
{
    window().touchMoved(point, time);
}

void RecordTest::release(CGPoint point)
{
    window().touchEnded(point, time);
}

void RecordTest::tapAt(CGPoint point)
{
    wait(1);
    press(point);
    wait(0.05);
    release(point);
}

void RecordTest::dragTo(CGPoint from, CGPoint to, int steps, double seconds)
{
    wait(1);
    press(from);
    for (int step = 1; step <= steps; ++step) {
        const double part = static_cast<double>(step) / steps;
        wait(seconds / steps);
        move({ from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part });
    }
    release(to);
}

void RecordTest::glide(int frames)
{
    for (int frame = 0; frame < frames; ++frame) {
        glideAll(window(), 0.008);
        phone->settle();
    }
}

void RecordTest::pressKey(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    sendKeyToWindow(window(), event);
}

void RecordTest::typeKeys(const QString& text)
{
    for (const auto character : text)
        pressKey(0, {}, QString(character));
}

void RecordTest::compose(const QString& text, int caret, const QString& committed)
{
    const auto place = caret < 0 ? static_cast<int>(text.size()) : caret;
    QInputMethodEvent event(text, { QInputMethodEvent::Attribute(QInputMethodEvent::Cursor, place, 1) });
    event.setCommitString(committed);
    window().firstResponder()->editor().inputMethod(event);
}

void host::PrintTo(const Digest& digest, std::ostream* stream)
{
    *stream << "preferences " << digest.preferences.value_or("none") << ", tree " << digest.tree
            << ", picture " << digest.picture;
}
