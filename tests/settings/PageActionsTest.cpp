#include "PageActionsTest.h"

using namespace platform;

void PageActionsTest::install(Toggle toggle)
{
    if (toggle != Toggle::Absent)
        installToggleFiles();
    if (toggle != Toggle::WithoutClass)
        registerToggleClass();
}

void PageActionsTest::open(const PropertyList& preferences)
{
    storePreferences(preferences);
    page = std::make_shared<vekora::VekoraListController>(CGSize { 375, 603 });
    page->specifiers();
    takeEvents();
}

void PageActionsTest::set(const char* key, std::optional<PropertyValue> value)
{
    PSSpecifier row("Row", page.get(), "", "", nullptr, PSCellType::Switch);
    row.setPropertyForKey(key, "key");
    page->setPreferenceValueSpecifier(std::move(value), &row);
}

std::string PageActionsTest::statusName() const
{
    return withPlainBlanks(vekora::statusSpecifier->name());
}

double PageActionsTest::end() const
{
    const auto* value = vekora::mainPreferences->objectForKey("disarmedUntil");
    return value && value->date() ? value->date()->timeIntervalSince1970() : 0;
}

NSDate PageActionsTest::in(double seconds) const
{
    return NSDate::dateWithTimeIntervalSince1970(tenSeventeen + seconds);
}
