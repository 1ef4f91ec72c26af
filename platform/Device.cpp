#include "Device.h"

namespace platform {

Device& Device::current()
{
    static Device device;
    return device;
}

}
