#pragma once

#include <QJsonObject>

namespace platform {
class UIView;
}

namespace host {

/// The view with everything in it, as docs/driver.md describes a node.
QJsonObject treeOf(platform::UIView&);

}
