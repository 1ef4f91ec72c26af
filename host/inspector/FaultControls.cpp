#include "FaultControls.h"

#include "host/Faults.h"
#include "platform/Journal.h"
#include "WrappingLayout.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>

namespace host {

using namespace platform;

namespace {

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
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const buttons = new WrappingLayout;
    column->addLayout(buttons);
    column->addWidget(_state);
    int widest = 0;
    for (const auto& known : faultWords()) {
        auto* const button = new QPushButton(textOf(known.summary), this);
        button->setObjectName(textOf(known.word));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        buttons->addWidget(button);
        widest = std::max(widest, button->sizeHint().width());
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
    for (auto* const button : findChildren<QPushButton*>())
        button->setMinimumWidth(widest); // So they stand in columns.
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
