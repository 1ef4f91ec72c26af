#pragma once

#include "Phone.h"

#include <QWidget>

class QLabel;

namespace host {

class Line;
class PhoneView;

/// The phone, and below it one line: what it told the rest of the system last, and the companion toggle's
/// state.
class MainWindow final : public QWidget {
public:
    /// The phone must live as long as the window.
    explicit MainWindow(Phone&);
    ~MainWindow() override;

private:
    PhoneView* _view;
    Line* _last;
    QLabel* _toggle;
    int _listener = 0;
};

}
