#pragma once

#include <QWidget>

#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace host {

class Phone;

/// What surrounds the pane, changed while it runs: screen, language, region, clock and companions, and faults
/// on demand. It always shows what is so; a word that makes no sense is answered with a sentence and changes
/// nothing. docs/environment.md says what a pane sees of each change, and when.
class EnvironmentPage final : public QWidget {
public:
    EnvironmentPage(Phone&, QWidget* parent);
    ~EnvironmentPage() override;

private:
    struct Control;

    QWidget* makeControls();
    void addChoice(QFormLayout&, const Control&);
    void addSwitch(QFormLayout&, const char* name, const char* title);
    void addClock(QFormLayout&);
    void addPages(QFormLayout&);
    void change(const char* name, const std::string& word);
    void moveClock();
    void show();
    void tell(const std::string& sentence);

    Phone& _phone;
    std::vector<std::pair<const char*, QComboBox*>> _choices;
    std::vector<std::pair<const char*, QCheckBox*>> _switches;
    QLineEdit* _now = nullptr;
    QLineEdit* _seconds = nullptr;
    QLabel* _message;
    int _listener = 0;
};

}
