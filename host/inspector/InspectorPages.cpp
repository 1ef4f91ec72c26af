#include "InspectorPages.h"

#include "EnvironmentPage.h"
#include "FilePage.h"
#include "host/PhoneView.h"
#include "TimelinePage.h"
#include "ViewsPage.h"

#include <type_traits>

namespace host {

namespace {

/// A page takes the phone, and the view that shows it where it needs one.
template <typename Page> QWidget* makePage(Phone& phone, [[maybe_unused]] PhoneView& view, QWidget* parent)
{
    if constexpr (std::is_constructible_v<Page, Phone&, PhoneView&, QWidget*>)
        return new Page(phone, view, parent);
    else
        return new Page(phone, parent);
}

// In the order of the tabs.
constexpr InspectorPage pages[] = {
    { "file", "File", makePage<FilePage> },
    { "timeline", "Timeline", makePage<TimelinePage> },
    { "views", "Views", makePage<ViewsPage> },
    { "environment", "Environment", makePage<EnvironmentPage> },
};

}

std::span<const InspectorPage> inspectorPages()
{
    return pages;
}

}
