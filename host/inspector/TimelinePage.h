#pragma once

#include <QWidget>

#include <chrono>
#include <functional>

class QLineEdit;
class QTableView;
class QToolButton;

namespace host {

class Line;
class Phone;
class TimelineModel;

/// What happened in the phone, in order, since the inspector was made: to be filtered, copied and saved.
class TimelinePage final : public QWidget {
public:
    TimelinePage(Phone&, QWidget* parent);

    /// Asks for a file to save to; an empty path for none.
    using Asker = std::function<QString()>;
    void setAsker(Asker asker) { _asker = std::move(asker); }

protected:
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;

private:
    QWidget* makeFilter();
    QWidget* makeButtons();
    void rememberPlace();
    void follow();
    void filter();
    void tellCount();
    /// The shown rows, or those of them that are selected.
    QByteArray tsv(bool selectedOnly) const;
    void copy() const;
    void save();

    TimelineModel* _model;
    QTableView* _table;
    QList<QToolButton*> _kinds; ///< In the order of `timelineKinds`.
    QLineEdit* _text;
    Line* _message;
    Asker _asker;
    bool _isAtEnd = true; ///< Before the rows change: the last one is in sight and stays so.
    std::chrono::nanoseconds _firstInSight {}; ///< Where it is not: when that happened which stays in sight.
};

}
