#include "EnvironmentPage.h"

#include "FaultControls.h"
#include "host/driver/ScriptParser.h"
#include "host/EnvironmentRules.h"
#include "host/Instant.h"
#include "PageParts.h"
#include "platform/Device.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <iterator>
#include <span>

namespace host {

using namespace platform;

namespace {

/// Seconds; some three hundred years.
constexpr double longestMove = 1e10;

// In letters.
constexpr int widestTitle = 16;
constexpr int fewestLetters = 8; // That are to be seen of a choice.

struct Choice {
    const char* word; ///< As the environment's rule reads it.
    const char* title; ///< As it is shown.
};

constexpr Choice sizes[] = {
    { "320x480", "320x480" },
    { "320x568", "320x568" },
    { "375x667", "375x667" },
    { "414x736", "414x736" },
    { "768x1024", "768x1024" },
};
constexpr Choice scales[]
    = { { "1", "1 pixel a point" }, { "2", "2 pixels a point" }, { "3", "3 pixels a point" } };
constexpr Choice locales[] = { { "ar_EG", "ar_EG" }, { "de_DE", "de_DE" }, { "en_GB", "en_GB" },
    { "en_US", "en_US" }, { "es_ES", "es_ES" }, { "fr_FR", "fr_FR" }, { "he_IL", "he_IL" },
    { "ja_JP", "ja_JP" }, { "ru_RU", "ru_RU" }, { "tr_TR", "tr_TR" }, { "zh_Hans_CN", "zh_Hans_CN" } };
constexpr Choice directions[]
    = { { "locale", "As the locale says" }, { "ltr", "Left to right" }, { "rtl", "Right to left" } };
constexpr Choice zones[] = { { "America/Los_Angeles", "America/Los_Angeles" },
    { "America/New_York", "America/New_York" }, { "Asia/Kolkata", "Asia/Kolkata" },
    { "Asia/Tokyo", "Asia/Tokyo" }, { "Australia/Sydney", "Australia/Sydney" },
    { "Europe/Berlin", "Europe/Berlin" }, { "Europe/London", "Europe/London" }, { "UTC", "UTC" } };

/// Empty for a name that is none.
std::string presentWord(const Phone& phone, std::string_view name)
{
    for (const auto& rule : environmentRules()) {
        if (rule.name == name)
            return rule.word(phone);
    }
    return {};
}

/// Turning the wheel over it scrolls the page, unless one has come here to choose.
class ChoiceBox final : public QComboBox {
public:
    ChoiceBox()
    {
        setFocusPolicy(Qt::StrongFocus);
        // A long choice may be cut short where the page is narrow.
        setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
        setMinimumContentsLength(fewestLetters);
    }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

QFormLayout* makeGroup(QVBoxLayout& column, const char* title)
{
    auto* const group = new QGroupBox(QString::fromUtf8(title));
    auto* const form = new QFormLayout(group);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    column.addWidget(group);
    return form;
}

/// The fields of all groups stand below one another.
void addRow(QFormLayout& form, const char* title, auto* field)
{
    auto* const label = new QLabel(QString::fromUtf8(title));
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * widestTitle);
    form.addRow(label, field);
}

}

/// Something that is chosen, or typed where there are more choices than are listed.
struct EnvironmentPage::Control {
    enum class Kind { Closed, Open };

    const char* name; ///< The environment's rule.
    const char* title;
    Kind kind;
    std::span<const Choice> choices;
};

EnvironmentPage::EnvironmentPage(Phone& phone, QWidget* parent)
    : QWidget(parent)
    , _phone(phone)
    , _message(makeMessage(this))
{
    auto* const area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(makeControls());
    auto* const column = new QVBoxLayout(this);
    column->addWidget(area, 1);
    column->addWidget(_message);
    _listener = _phone.listenToEnvironment([this] { show(); });
    show();
}

EnvironmentPage::~EnvironmentPage()
{
    _phone.stopListening(_listener);
}

QWidget* EnvironmentPage::makeControls()
{
    auto* const controls = new QWidget;
    auto* const column = new QVBoxLayout(controls);
    column->setContentsMargins(0, 0, 0, 0);

    auto* const screen = makeGroup(*column, "Screen");
    addChoice(*screen, { "size", "Size in points", Control::Kind::Open, sizes });
    addChoice(*screen, { "scale", "Scale", Control::Kind::Closed, scales });

    auto* const region = makeGroup(*column, "Language and region");
    addChoice(*region, { "locale", "Locale", Control::Kind::Open, locales });
    addChoice(*region, { "direction", "Text direction", Control::Kind::Closed, directions });
    addChoice(*region, { "timezone", "Time zone", Control::Kind::Open, zones });

    addClock(*makeGroup(*column, "Clock"));

    auto* const companions = makeGroup(*column, "Companions");
    addSwitch(*companions, "toggle", "Companion toggle is installed");
    addSwitch(*companions, "statusbar", "Status-bar library is present");
    addPages(*companions);

    auto* const faults = new QGroupBox(QStringLiteral("Faults of the preference file"));
    auto* const inFaults = new QVBoxLayout(faults);
    inFaults->addWidget(new FaultControls([this](const auto& sentence) { tell(sentence); }, faults));
    column->addWidget(faults);
    column->addStretch(1);
    return controls;
}

void EnvironmentPage::addChoice(QFormLayout& form, const Control& control)
{
    auto* const box = new ChoiceBox;
    box->setObjectName(QLatin1String(control.name));
    box->setAccessibleName(QString::fromUtf8(control.title));
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (const auto& choice : control.choices)
        box->addItem(QString::fromUtf8(choice.title), QByteArray(choice.word));
    const auto* const name = control.name;
    connect(box, &QComboBox::activated, this, [=, this](int index) {
        // The toolkit also tells of a word that has just been put back.
        const auto word = box->itemData(index).toByteArray().toStdString();
        if (word != presentWord(_phone, name))
            change(name, word);
    });
    if (control.kind == Control::Kind::Open) {
        box->setEditable(true);
        box->lineEdit()->setAccessibleName(box->accessibleName());
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setCompleter(nullptr); // A word that is typed is meant as it stands.
        connect(box->lineEdit(), &QLineEdit::returnPressed, this,
            [=, this] { change(name, box->currentText().trimmed().toStdString()); });
    }
    addRow(form, control.title, box);
    _choices.emplace_back(name, box);
}

void EnvironmentPage::addSwitch(QFormLayout& form, const char* name, const char* title)
{
    auto* const box = new QCheckBox(QString::fromUtf8(title));
    box->setObjectName(QLatin1String(name));
    connect(box, &QCheckBox::clicked, this, [=, this](bool isOn) { change(name, isOn ? "on" : "off"); });
    form.addRow(box);
    _switches.emplace_back(name, box);
}

void EnvironmentPage::addClock(QFormLayout& form)
{
    _now = new QLineEdit;
    _now->setObjectName(QStringLiteral("now"));
    _now->setAccessibleName(QStringLiteral("Time"));
    _now->setToolTip(QStringLiteral("“real”, or an instant in ISO 8601 at which the clock stands"));
    connect(_now, &QLineEdit::returnPressed, this,
        [this] { change("now", _now->text().trimmed().toStdString()); });
    addRow(form, "Time", _now);

    auto* const kinds = new QHBoxLayout;
    addButton(*kinds, "stand", "Stand Still", "The clock stands at this moment", this,
        [this] { change("now", textFromInstant(NSDate::date(), Device::current().timeZone)); });
    addButton(*kinds, "run", "Run", "The clock is the real one", this, [this] { change("now", "real"); });
    kinds->addStretch(1);
    addRow(form, "", kinds);

    _seconds = new QLineEdit(QStringLiteral("60"));
    _seconds->setObjectName(QStringLiteral("seconds"));
    _seconds->setAccessibleName(QStringLiteral("Seconds to move the clock on by"));
    connect(_seconds, &QLineEdit::returnPressed, this, &EnvironmentPage::moveClock);
    auto* const move = new QHBoxLayout;
    move->addWidget(_seconds, 1);
    move->addWidget(new QLabel(QStringLiteral("seconds")));
    addButton(*move, "move", "Move On", "A clock that stands moves on", this, &EnvironmentPage::moveClock);
    addRow(form, "Move on by", move);
}

void EnvironmentPage::addPages(QFormLayout& form)
{
    auto* const row = new QHBoxLayout;
    addButton(*row, "anew", "Open Pages Anew",
        "As if Settings had been closed and opened again: a pane then sees what it looks for only once", this,
        [this] {
            _phone.makePagesAnew();
            tell({});
        });
    row->addStretch(1);
    form.addRow(row);
}

void EnvironmentPage::change(const char* name, const std::string& word)
{
    tell(changeEnvironment(_phone, name, word));
    show(); // A refused word makes place for what is so.
}

void EnvironmentPage::moveClock()
{
    const auto word = _seconds->text().trimmed().toStdString();
    double seconds = 0;
    if (!readNumber(word, seconds) || seconds > longestMove || seconds < -longestMove)
        return tell("The clock moves on by a number of seconds, as 60 or 0.5, not \"" + word + "\".");
    tell(_phone.moveClock(seconds)
            ? ""
            : "The clock is the real one and can't be moved; let it stand still first.");
}

void EnvironmentPage::show()
{
    const auto wordOf
        = [this](const char* name) { return QByteArray::fromStdString(presentWord(_phone, name)); };
    for (const auto& [name, box] : _choices) {
        const auto word = wordOf(name);
        box->setCurrentIndex(box->findData(word));
        if (box->isEditable())
            box->setEditText(QString::fromUtf8(word));
    }
    for (const auto& [name, box] : _switches)
        box->setChecked(wordOf(name) == "on");
    _now->setText(QString::fromUtf8(wordOf("now")));
}

void EnvironmentPage::tell(const std::string& sentence)
{
    _message->setText(QString::fromStdString(sentence));
    _message->setVisible(!sentence.empty());
}

}
