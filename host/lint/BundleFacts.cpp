#include "BundleFacts.h"

#include "Apart.h"
#include "host/ScratchFolder.h"
#include "ModuleCheck.h"
#include "PageWalk.h"

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds longest { 60 };
constexpr int mostCrashes = 20; ///< So many are told of; each costs another run.

/// Takes in what the walk told.
class Gathering {
public:
    Gathering(const BundleContents& contents, BundleFacts& facts)
        : _contents(contents)
        , _facts(facts)
    {
    }

    /// Returns the step that was under way last.
    WalkStep take(const ApartResult& result)
    {
        WalkStep last;
        for (const auto& record : result.records) {
            if (record.size() == 5 && record[0] == "step")
                last = { record[1], record[2], record[3], record[4] };
            else
                takeFact(record);
        }
        return last;
    }

    void tell(const WalkStep& step, const std::string& ending)
    {
        add({ step.file, step.place, ending + " while " + step.doing });
    }

private:
    void takeFact(const Record& record)
    {
        if (record.size() == 4 && record[0] == "finding") {
            add({ record[1], record[2], record[3] });
        } else if (record.size() == 4 && record[0] == "remark") {
            add({ record[1], record[2], record[3], Finding::Weight::Remark });
        } else if (record.size() == 2 && record[0] == "exception") {
            add({ _contents.infoText("CFBundleExecutable"), {}, "fails: " + record[1] });
        } else if (record.size() == 1 && record[0] == "loaded") {
            _facts.moduleIsLoaded = true;
        } else if (record.size() == 2 && record[0] == "class") {
            _facts.classes.insert(record[1]);
        } else if (record.size() == 2 && record[0] == "selector") {
            _facts.selectors.insert(record[1]);
        } else if (record.size() >= 4) {
            auto& row = _facts.rows[{ std::stoul(record[1]), std::stoul(record[2]) }];
            if (record[0] == "target")
                row.target = record[3];
            else if (record[0] == "answers" && record.size() == 5)
                row.answers[record[3]] = record[4] == "yes";
            else if (record[0] == "code")
                row.givenInCode.insert(record[3]);
            else if (record[0] == "stores")
                row.storesNothing = record[3] == "nothing";
        }
    }

    /// A walk that begins anew says again what it has said.
    void add(const Finding& finding)
    {
        for (const auto& known : _facts.findings) {
            if (known.file == finding.file && known.place == finding.place && known.reason == finding.reason)
                return;
        }
        _facts.findings.push_back(finding);
    }

    const BundleContents& _contents;
    BundleFacts& _facts;
};

}

BundleFacts inspectBundle(const BundleContents& contents)
{
    BundleFacts facts;
    const auto executable = contents.infoText("CFBundleExecutable");
    if (executable.empty() || contents.infoText("NSPrincipalClass").empty())
        return facts; // Nothing can be loaded; the rules of Info.plist say why.
    if (const auto reason = whyNoModule(contents.folder / fs::path(executable).relative_path());
        !reason.empty()) {
        facts.findings.push_back({ executable, {}, reason });
        return facts;
    }
    Gathering gathering(contents, facts);
    std::set<std::string> skipped;
    for (int run = 0; run < mostCrashes; ++run) {
        const ScratchFolder scratch("lint");
        const auto result = runApart(
            [&](const RecordWriter& tell) { walkPages(contents, scratch.path() / "root", skipped, tell); },
            longest);
        const auto last = gathering.take(result);
        if (result.ending.empty())
            break;
        gathering.tell(last, result.ending);
        if (last.name.empty() || last.place.empty())
            break; // Without the module or the first page there is nothing to go on with.
        skipped.insert(last.name);
    }
    return facts;
}

}
