#pragma once

#include "Phone.h"

#include <QWidget>

class QLabel;
class QSplitter;
class QToolButton;

namespace host {

class Inspector;
class Line;
class PhoneView;

/// The phone, and below it one line: what it told the rest of the system last, the companion toggle's state,
/// and a button that shows the inspector beside the phone. Showing and hiding the inspector changes the
/// window's width, never the phone's, as far as the screen has room. When the phone's screen gets another
/// size, the window follows.
class MainWindow final : public QWidget {
public:
    /// The phone must live as long as the window.
    explicit MainWindow(Phone&);
    ~MainWindow() override;

    PhoneView& phoneView() { return *_view; }
    /// Null until it is first shown.
    Inspector* inspector() { return _inspector; }
    bool inspectorIsShown() const;
    void setInspectorShown(bool);

private:
    void layOut();
    void showLastInspector();
    void changeWidth(bool showInspector);
    void rememberInspector() const;
    void showToggle(const QString&);
    /// Takes the keyboard from the phone to the inspector and back.
    void switchPanel();
    void showEnvironment();
    void fitPhone();

    Phone& _phone;
    QSplitter* _splitter;
    QWidget* _phoneSide; ///< The view and the line.
    PhoneView* _view;
    Line* _last;
    QLabel* _toggle;
    QToolButton* _inspectorButton;
    Inspector* _inspector = nullptr;
    int _inspectorWidth; ///< To show it with, in logical pixels.
    int _listener = 0;
    int _environmentListener = 0;
};

}
