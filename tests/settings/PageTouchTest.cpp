#include "PageTouchTest.h"

#include "platform/UIButton.h"

using namespace platform;

PageTouchTest::~PageTouchTest()
{
    page.reset();
    if (navigation)
        navigation->setRoot(nullptr);
}

void PageTouchTest::open(const PropertyList& preferences)
{
    storePreferences(preferences);
    const CGSize size { 375, 667 };
    window = std::make_shared<UIWindow>(size);
    window->makeKey();
    navigation = std::make_unique<UINavigationController>(size);
    window->addSubview(navigation->viewRef());
    page = std::make_shared<vekora::VekoraListController>(navigation->contentSize());
    navigation->setRoot(page);
    window->display();
    takeEvents();
}

NSIndexPath PageTouchTest::rowWithID(std::string_view identifier) const
{
    return page->indexPathForSpecifier(page->specifierForID(identifier)).value_or(NSIndexPath { -1, -1 });
}

NSIndexPath PageTouchTest::statusRow() const
{
    return page->indexPathForSpecifier(vekora::statusSpecifier.get()).value_or(NSIndexPath { -1, -1 });
}

PSListController& PageTouchTest::topPage() const
{
    return dynamic_cast<PSListController&>(*navigation->topViewController());
}

PSTableCell& PageTouchTest::cell(NSIndexPath path)
{
    auto& table = topPage().table();
    table.scrollToRowAtIndexPath(path);
    window->display();
    auto* found = table.cellForRowAtIndexPath(path);
    if (!found)
        throw std::runtime_error("no such row");
    return dynamic_cast<PSTableCell&>(*found);
}

std::string PageTouchTest::shownText(NSIndexPath path)
{
    return withPlainBlanks(cell(path).textLabel().text());
}

std::string PageTouchTest::shownTextColor(NSIndexPath path)
{
    return hexDescription(cell(path).textLabel().textColor().cgColor());
}

std::string PageTouchTest::shownBackground(NSIndexPath path)
{
    const auto& color = cell(path).layer().backgroundColor();
    return color ? hexDescription(*color) : "none";
}

void PageTouchTest::tap(NSIndexPath path)
{
    auto& row = cell(path);
    tapMiddleOf(row.control() ? *row.control() : row);
}

void PageTouchTest::tapRow(const std::string& text)
{
    auto& top = topPage();
    for (const auto& specifier : top.specifiers()) {
        if (specifier->name() != text)
            continue;
        tap(*top.indexPathForSpecifier(specifier.get()));
        return;
    }
    throw std::runtime_error("no row " + text);
}

void PageTouchTest::goBack()
{
    tapMiddleOf(navigation->backButton());
}

void PageTouchTest::tapMiddleOf(const UIView& view)
{
    const auto bounds = view.bounds();
    const auto middle = view.convertPointToView({ bounds.midX(), bounds.midY() }, nullptr);
    window->touchBegan(middle);
    window->touchEnded(middle);
    window->display();
}
