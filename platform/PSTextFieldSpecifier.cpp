#include "PSTextFieldSpecifier.h"

namespace platform {

namespace {

const auto registration = registerClass<PSTextFieldSpecifier>("PSTextFieldSpecifier");

}

Ref<PSTextFieldSpecifier> PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
    std::string name, NSObject* target, std::string set, std::string get, const Class* detail,
    PSCellType cell, const Class*)
{
    return std::make_shared<PSTextFieldSpecifier>(
        std::move(name), target, std::move(set), std::move(get), detail, cell);
}

}
