#pragma once

#include "PropertyValue.h"

#include <string_view>

namespace platform {

class NSObject;

/// The system-wide notification centre: a notification is its name and nothing else.
class CFNotificationCenter;

CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter();

/// Delivered at once to every process that listens; a post that nobody hears, or without a bus to carry it,
/// is lost without a trace. An empty name is ignored.
///
/// This centre has no use for the object, the user info (each null for none) and the wish to be delivered
/// immediately: every post is bare and immediate. Only the journal tells what was asked for.
void CFNotificationCenterPostNotification(CFNotificationCenter&, std::string_view name,
    const NSObject* object, const PropertyList* userInfo, bool deliverImmediately);

}
