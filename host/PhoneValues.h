#pragma once

#include "Phone.h"

#include <span>
#include <string_view>

namespace host {

/// What is set up of a phone by a word, on the command line, in a script or by hand.
struct PhoneValue {
    std::string_view name; ///< As "size".
    std::string_view takes; ///< As "1, 2 or 3", for a sentence.
    /// False for a word that is none such; the options are then as they were.
    bool (*take)(PhoneOptions&, const std::string& word);
};

/// Size, scale, locale, time zone, direction, and the instant at which the clock stands ("now").
std::span<const PhoneValue> phoneValues();
/// Null for another name.
const PhoneValue* phoneValueNamed(std::string_view name);

/// Takes the word, and answers with nothing, or with one sentence that says what is wrong with it. The
/// sentence calls the value by `name`.
std::string takePhoneValue(
    const PhoneValue&, PhoneOptions&, const std::string& word, const std::string& name);

/// As `phoneValues` reads it: "ltr", "rtl" or "locale".
std::string_view wordFor(TextDirection);

}
