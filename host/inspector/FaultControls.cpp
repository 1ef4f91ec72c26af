#include "FaultControls.h"

#include "host/Faults.h"
#include "platform/Journal.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <stdexcept>

namespace host {

using namespace platform;

namespace {

constexpr int buttonsARow = 2;

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}

FaultControls::FaultControls(Teller tell, QWidget* parent)
    : QWidget(parent)
    , _tell(std::move(tell))
    , _state(new QLabel(this))
{
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    int place = 0;
    for (const auto& known : faultWords()) {
        auto* const button = new QPushButton(textOf(known.summary), this);
        button->setObjectName(textOf(known.word));
        grid->addWidget(button, place / buttonsARow, place % buttonsARow);
        ++place;
        connect(button, &QPushButton::clicked, this, [this, fault = known.fault] {
            std::string sentence;
            try {
                Faults::current().make(fault);
            } catch (const std::runtime_error& failure) {
                sentence = failure.what();
            }
            _tell(sentence);
            show();
        });
    }
    _state->setObjectName(QStringLiteral("faults"));
    grid->addWidget(_state, (place + buttonsARow - 1) / buttonsARow, 0, 1, buttonsARow);
    // A write takes the failure that was to come.
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Write)
            show();
    });
    show();
}

FaultControls::~FaultControls()
{
    Journal::shared().stop(_listener);
}

void FaultControls::show()
{
    const auto& faults = Faults::current();
    const auto text = faults.isReadOnly() ? QStringLiteral("File and folder are read-only.")
        : faults.nextWriteFails()         ? QStringLiteral("The next write will fail.")
                                          : QStringLiteral("Every write can succeed.");
    if (text != _state->text())
        _state->setText(text);
}

}
