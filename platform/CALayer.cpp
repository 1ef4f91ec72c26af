#include "CALayer.h"
#include "UIViewImpl.h"

namespace platform {

void CALayer::willChange()
{
    _view.impl().damage();
}

}
