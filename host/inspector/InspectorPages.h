#pragma once

#include <span>

class QWidget;

namespace host {

class Phone;
class PhoneView;

/// A page of the inspector: a class in a file of its own, and a row in the table of InspectorPages.cpp.
struct InspectorPage {
    const char* name; ///< By which the page that was shown last is remembered.
    const char* title;
    /// Called once, when the inspector is first shown. Phone and view live longer than the page.
    QWidget* (*make)(Phone&, PhoneView&, QWidget* parent);
};

std::span<const InspectorPage> inspectorPages();

}
