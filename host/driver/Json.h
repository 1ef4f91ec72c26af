#pragma once

#include "platform/Geometry.h"
#include "platform/PropertyValue.h"
#include "platform/UIColor.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <string>

/// The platform's values as JSON, in the forms that docs/driver.md lists.
namespace host {

QJsonValue jsonFromText(std::string_view utf8);
/// Null for an empty text: there is none.
QJsonValue jsonFromTextOrNull(std::string_view utf8);
QJsonArray jsonFromPoint(platform::CGPoint);
QJsonArray jsonFromRect(platform::CGRect);
QJsonValue jsonFromColor(const platform::CGColor&);
QJsonValue jsonFromColor(const std::optional<platform::CGColor>&);

/// Booleans and numbers as they are, dates in ISO 8601 UTC, data in base64; a number that is not finite, and
/// a date that has no text, is null.
QJsonValue jsonFromValue(const platform::PropertyValue&);
QJsonObject jsonFromDictionary(const platform::PropertyList&);

/// Compact, with the line's end.
std::string lineFromJson(const QJsonObject&);

/// Without it, for one value of any kind.
std::string textFromJson(const QJsonValue&);

}
