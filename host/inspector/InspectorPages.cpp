#include "InspectorPages.h"

#include "host/PhoneView.h"

#include <type_traits>

namespace host {

namespace {

/// A page takes the phone, and the view that shows it where it needs one.
template <typename Page>
[[maybe_unused]] QWidget* makePage(Phone& phone, [[maybe_unused]] PhoneView& view, QWidget* parent)
{
    if constexpr (std::is_constructible_v<Page, Phone&, PhoneView&, QWidget*>)
        return new Page(phone, view, parent);
    else
        return new Page(phone, parent);
}

}

std::span<const InspectorPage> inspectorPages()
{
    // In the order of the tabs: { "file", "File", makePage<FilePage> }.
    return {};
}

}
