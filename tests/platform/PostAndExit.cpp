#include "platform/CFNotificationCenter.h"
#include "platform/qt/NotifyCenter.h"

/// Posts the name it is given and ends.
int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    platform::CFNotificationCenterPostNotification(
        platform::CFNotificationCenterGetDarwinNotifyCenter(), argv[1], nullptr, nullptr, true);
    platform::flushNotifications();
    return 0;
}
