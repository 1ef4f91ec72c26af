#include "Lint.h"

#include "Images.h"
#include "Rules.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <stdexcept>
#include <string_view>

namespace host {

namespace {

constexpr int somethingIsWrong = 1;

/// By the file and the place of the row that they are of.
using FindingsOfRows = std::map<std::pair<std::string, std::string>, Findings>;

void checkRow(const BundleContents& contents, const BundleFacts& facts, std::size_t number, std::size_t index,
    const std::string& place, Findings& findings)
{
    const auto& resource = contents.resources[number];
    const auto* item = resource.row(index);
    if (!item) {
        findings.push_back({ resource.file, place, "is no dictionary and is left out" });
        return;
    }
    const auto seen = facts.rows.find({ number, index });
    const RowFacts none;
    const auto* cell = textUnder(*item, "cell");
    const RowCase row { contents, facts, resource, *item, seen == facts.rows.end() ? none : seen->second,
        cell ? platform::cellNameNamed(*cell) : nullptr };
    const RowReport report([&](std::string reason, Finding::Weight weight) {
        findings.push_back({ resource.file, place, std::move(reason), weight });
    });
    for (const auto rules : { nameRules(), keyRules(), valueRules(), iconRules() }) {
        for (const auto rule : rules)
            rule(row, report);
    }
}

/// In the order in which they are told: Info.plist, the module, rows by resource, and then all other files.
Findings check(const BundleContents& contents)
{
    auto facts = inspectBundle(contents);
    inspectImages(contents, facts);
    Findings findings = contents.unreadable;
    checkInfo(contents, findings);
    std::set<std::string_view> filesOfRows;
    for (const auto& resource : contents.resources)
        filesOfRows.insert(resource.file);
    FindingsOfRows ofRows;
    for (const auto& finding : facts.findings) {
        auto& known = filesOfRows.contains(finding.file) ? ofRows[{ finding.file, finding.place }] : findings;
        known.push_back(finding);
    }
    for (std::size_t number = 0; number < contents.resources.size(); ++number) {
        const auto& resource = contents.resources[number];
        if (!arrayUnder(resource.root, "items"))
            findings.push_back({ resource.file, {}, "\"items\" is no list" });
        Findings shared;
        checkSharedNames(contents, resource, shared);
        for (const auto& finding : shared)
            ofRows[{ finding.file, finding.place }].push_back(finding);
        for (std::size_t index = 0; index < resource.size(); ++index) {
            const auto place = placeOfRow(resource, index);
            checkRow(contents, facts, number, index, place, findings);
            if (const auto known = ofRows.find({ resource.file, place }); known != ofRows.end())
                findings.insert(findings.end(), known->second.begin(), known->second.end());
        }
    }
    checkImages(contents, facts, findings);
    return findings;
}

std::string counted(std::size_t count, const char* what)
{
    return (count == 0 ? "no" : std::to_string(count)) + ' ' + what + (count == 1 ? "" : "s");
}

/// As one line that ends like a sentence, whatever the bundle's texts hold.
std::string lineFrom(const Finding& finding, const std::string& folder)
{
    auto line = folder + '/' + finding.file + ": " + (finding.place.empty() ? "" : finding.place + ": ")
        + (finding.weight == Finding::Weight::Remark ? "remark: " : "") + finding.reason
        + (finding.reason.ends_with('?') ? "" : ".");
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < ' ' || c == 127; }, ' ');
    return line;
}

}

int runLint(const Options& options)
{
    auto folder = options.bundleAsGiven;
    const BundleContents contents(folder);
    const auto findings = check(contents);
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    for (const auto& finding : findings)
        std::puts(lineFrom(finding, folder).c_str());
    const auto wrong = static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(),
        [](const auto& finding) { return finding.weight == Finding::Weight::Wrong; }));
    const auto remarks = findings.size() - wrong;
    std::size_t rows = 0;
    for (const auto& resource : contents.resources)
        rows += resource.size();
    std::printf("%s: %s%s in %s, %s.\n", folder.c_str(), counted(wrong, "finding").c_str(),
        remarks ? (" and " + counted(remarks, "remark")).c_str() : "",
        counted(contents.resources.size(), "page").c_str(), counted(rows, "row").c_str());
    if (std::fflush(stdout) != 0)
        throw std::runtime_error("The findings can't be written.");
    return wrong == 0 ? 0 : somethingIsWrong;
}

}
