#pragma once

#include "host/driver/Digest.h"
#include "host/record/Recorder.h"
#include "tests/host/PhoneFixture.h"

#include <memory>
#include <string>

/// A phone in this process that is recorded while a test uses it, and its replay by the built program.
class RecordTest : public PhoneTest {
protected:
    ~RecordTest() override;

    /// Opens a phone and records it from now on.
    void record(const host::PhoneOptions&);
    void record() { record(options()); }
    void recordTestBundle() { record(optionsWithTestBundle()); }
    host::PhoneOptions optionsWithGallery() const;

    /// What was recorded, without comments.
    std::string script() const;
    std::string wholeFile() const;
    void finish() { _recorder->finish(); }
    /// Replays it on a phone of the same kind below a root of its own: what that one comes to.
    host::Digest replay();
    /// Of the phone that was recorded.
    host::Digest digest();
    void expectSameReplay();

    platform::UIWindow& window() const { return phone->window(); }
    /// Where it is shown. Fails the test when nothing reads so.
    platform::CGPoint middleOf(const std::string& text) const;
    platform::CGPoint middleOfClass(const std::string& className) const;

    // A finger, timed as an event's would be.
    void press(platform::CGPoint);
    void move(platform::CGPoint);
    void release(platform::CGPoint);
    void tapAt(platform::CGPoint);
    void dragTo(platform::CGPoint from, platform::CGPoint to, int steps, double seconds = 0.3);
    void wait(double seconds) { time += seconds; }
    /// Lets what glides glide on for a while, frame by frame.
    void glide(int frames);
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
    void typeKeys(const QString& text);
    /// An input method shows a text and hands over another; its caret is at the end unless it says where.
    void compose(const QString& text, int caret = -1, const QString& committed = {});

    double time = 1;
    host::PhoneOptions recorded;

private:
    std::unique_ptr<host::RecordFile> _file;
    std::unique_ptr<host::Recorder> _recorder;
};

namespace host {
void PrintTo(const Digest&, std::ostream*);
}
