#pragma once

#include "Element.h"

namespace platform {
class UINavigationController;
class UIWindow;
}

namespace host {

/// What the phone's screen shows, as a tree whose root stands for the window: the bar and the page below it
/// or, while an alert is shown, the foremost alert alone. Layout must be finished. Of a very long page the
/// rows near the screen are there, as on the screen itself.
Element readScreen(platform::UIWindow&, platform::UINavigationController&);

/// Where an element is now, in points of the window, without reading the whole screen anew: as
/// `Element::rect`. Empty once its view has gone.
platform::CGRect currentRect(const Element&);

/// What scrollers and the window let be seen at its place; empty when it is hidden, or its view has gone.
platform::CGRect clipAround(const Element&);

/// The part of it that is in sight; empty when none is.
platform::CGRect visibleRect(const Element&);

}
