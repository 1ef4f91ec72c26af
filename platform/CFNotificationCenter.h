#pragma once

#include <string_view>

namespace platform {

/// The system-wide notification centre: a notification is its name and nothing else.
class CFNotificationCenter;

CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter();

/// Delivered at once to every process that listens; a post that nobody hears, or without a bus to carry it,
/// is lost without a trace. An empty name is ignored.
void CFNotificationCenterPostNotification(CFNotificationCenter&, std::string_view name);

}
