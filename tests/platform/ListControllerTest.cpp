#include "ListControllerTest.h"

namespace platform::tests {

namespace {

/// A page that is no list.
class PlainPage final : public UIViewController { };

const auto pageRegistration = registerClass<ListPage>("ListPage")
                                  .initialiser<CGSize>()
                                  .method("act", &ListPage::act)
                                  .method("actWith:", &ListPage::actWith);
const auto plainRegistration = registerClass<PlainPage>("PlainPage").initialiser<>();

}

std::string ListPage::log;
std::function<PSListController::Specifiers(ListPage&)> ListPage::build;

Ref<PSSpecifier> makeRow(PSListController& page, const std::string& name, PSCellType type)
{
    return PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        name, &page, "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr, type, nullptr);
}

ListControllerTest::ListControllerTest()
{
    ListPage::log.clear();
    ListPage::build = [](auto&) { return PSListController::Specifiers {}; };
}

Ref<ListPage> ListControllerTest::showKinds(std::vector<PSCellType> kinds)
{
    ListPage::build = [kinds = std::move(kinds)](ListPage& page) {
        PSListController::Specifiers rows;
        for (const auto kind : kinds)
            rows.push_back(makeRow(page, "Row " + std::to_string(rows.size()), kind));
        return rows;
    };
    return show<ListPage>();
}

std::vector<long> ListControllerTest::rowCounts(PSListController& page)
{
    std::vector<long> counts;
    for (long section = 0; section < page.numberOfSectionsInTableView(page.table()); ++section)
        counts.push_back(page.tableViewNumberOfRowsInSection(page.table(), section));
    return counts;
}

}
