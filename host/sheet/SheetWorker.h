#pragma once

#include "SheetPicture.h"
#include "SheetPlan.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <set>

namespace host {

/// Renders jobs of a sheet, one after the other, in a process of its own: there is one device in each. Its
/// root is a folder that nobody else uses.
class SheetWorker {
public:
    SheetWorker(const SheetPlan&, std::filesystem::path root);

    /// Returns one sentence when the bundle or a state's script fails. Throws what the bundle throws.
    std::optional<std::string> render(std::size_t job, const std::function<void(const SheetPicture&)>& take);

private:
    PhoneOptions optionsFor(const SheetPlan::Job&) const;
    std::optional<std::string> prepareFiles(const SheetState&) const;
    static std::optional<std::string> carryOut(Phone&, const SheetState&);
    SheetPicture pictureOf(Phone&);

    const SheetPlan& _plan;
    std::vector<SheetPlan::Job> _jobs;
    std::filesystem::path _root;
    std::set<QByteArray> _sent;
};

}
