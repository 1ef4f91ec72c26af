#include "../NSFileManager.h"

#include "DeviceFiles.h"

namespace platform {

NSFileManager& NSFileManager::defaultManager()
{
    static NSFileManager manager;
    return manager;
}

bool NSFileManager::fileExistsAtPath(std::string_view devicePath) const
{
    return fileExists(devicePath);
}

}
