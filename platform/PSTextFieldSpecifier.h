#pragma once

#include "PSSpecifier.h"

namespace platform {

/// A row with a text field.
class PSTextFieldSpecifier final : public PSSpecifier {
public:
    using PSSpecifier::PSSpecifier;

    static Ref<PSTextFieldSpecifier> preferenceSpecifierNamedTargetSetGetDetailCellEdit(std::string name,
        NSObject* target, std::string set, std::string get, const Class* detail, PSCellType cell,
        const Class* edit);

    /// Shown while the value is empty.
    const std::string& placeholder() const { return _placeholder; }
    void setPlaceholder(std::string placeholder) { _placeholder = std::move(placeholder); }

private:
    std::string _placeholder;
};

}
