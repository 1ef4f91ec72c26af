#pragma once

#include "FileModel.h"
#include "PreferenceWatch.h"

#include <QWidget>

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace host {

class Line;
class Phone;

/// The preference file as a table that follows it and can be edited. The pane reads the file when it sees
/// fit, as it would after a change by another process; a button lets its page appear again.
class FilePage final : public QWidget {
public:
    FilePage(Phone&, QWidget* parent);
    ~FilePage() override;

    /// Opens a file of this machine with the user's program for it, and answers whether there is one.
    using Opener = std::function<bool(const QString& path)>;
    void setOpener(Opener opener) { _opener = std::move(opener); }

private:
    QWidget* makeAddition();
    QWidget* makeButtons();
    QWidget* makeQuestion();
    /// Another bundle, or build of it, may keep its values elsewhere.
    void followPath();
    void show(const PreferenceState&);
    void tell(const std::string& sentence);
    void enableButtons();
    bool edit(const std::string& key, const QString& text);
    void add();
    void removeSelected();
    void ask(bool isAsking);
    void reset();
    void openInEditor();
    void reloadPage();

    Phone& _phone;
    std::string _path; ///< Of `preferenceFile` when it was last asked.
    PreferenceWatch _watch;
    FileModel* _model;
    QTableView* _table;
    Line* _pathLine;
    Line* _state;
    QLabel* _message;
    QLineEdit* _newKey;
    QComboBox* _newType;
    QLineEdit* _newValue;
    QPushButton* _delete;
    QWidget* _buttons;
    QWidget* _question;
    Opener _opener;
    int _listener;
};

}
