#include "Sheet.h"

#include "SheetCrew.h"
#include "SheetDocument.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <QSaveFile>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace host {

namespace {

constexpr unsigned fewestWorkers = 2;
constexpr unsigned mostWorkers = 16;

/// A bar on standard error, when somebody looks at it.
class Progress {
public:
    ~Progress()
    {
        if (_isSeen && _percent >= 0)
            std::fputs("\r\x1B[K", stderr);
    }
    void show(std::size_t done, std::size_t all)
    {
        constexpr int width = 40;
        const auto percent = static_cast<int>(done * 100 / all);
        if (!_isSeen || percent == std::exchange(_percent, percent))
            return;
        const std::string bar(static_cast<std::size_t>(percent * width / 100), '#');
        std::fprintf(stderr, "\r[%-*s] %3d %%", width, bar.c_str(), percent);
        std::fflush(stderr);
    }

private:
    bool _isSeen = ::isatty(STDERR_FILENO) != 0;
    int _percent = -1;
};

SheetPlan planFor(const Options& options)
{
    SheetPlan plan;
    plan.phones = options.sheet.phones.empty() ? SheetPlan::usualPhones() : options.sheet.phones;
    plan.scales = options.sheet.scales.empty() ? std::vector<int> { 1, 2, 3 } : options.sheet.scales;
    plan.locales = options.sheet.locales.empty() ? SheetPlan::usualLocales() : options.sheet.locales;
    plan.states = SheetPlan::usualStates(options.phone.bundle.empty());
    plan.bundle = options.phone.bundle;
    return plan;
}

std::string nameOf(const SheetPlan& plan)
{
    return plan.bundle.empty() ? "Vekora" : std::filesystem::path(plan.bundle).stem().string();
}

SheetDocument documentFor(const SheetPlan& plan, std::vector<SheetPicture> pictures)
{
    // The titles are those that come first, as some follow the language.
    std::stable_sort(
        pictures.begin(), pictures.end(), [&](const SheetPicture& one, const SheetPicture& other) {
            return std::tie(one.job, one.page) < std::tie(other.job, other.page);
        });
    const auto jobs = plan.jobs();
    std::stable_sort(
        pictures.begin(), pictures.end(), [&](const SheetPicture& one, const SheetPicture& other) {
            return std::pair(jobs[one.job].state, one.page) < std::pair(jobs[other.job].state, other.page);
        });
    SheetDocument sheet;
    sheet.name = nameOf(plan);
    for (const auto& picture : pictures) {
        const auto& job = jobs[picture.job];
        SheetDocument::Entry entry;
        entry.state = plan.states[job.state].name;
        entry.page = static_cast<int>(picture.page);
        entry.title = picture.title;
        entry.phone = textOfSize(plan.phones[job.phone]);
        entry.scale = plan.scales[job.scale];
        entry.locale = plan.locales[job.locale];
        entry.id = picture.id;
        entry.width = picture.width;
        entry.height = picture.height;
        sheet.entries.push_back(std::move(entry));
    }
    return sheet;
}

}

int runSheet(const Options& options)
{
    const auto& file = options.sheet.file;
    std::optional<SheetDocument> earlier;
    if (!options.sheet.against.empty())
        earlier = SheetDocument::read(options.sheet.against);
    // Before anything is rendered: it would be for nothing.
    QSaveFile output(QString::fromStdString(file));
    if (!output.open(QIODevice::WriteOnly))
        throw std::runtime_error(
            "The sheet " + file + " can't be written: " + output.errorString().toStdString() + ".");

    const auto plan = planFor(options);
    const auto workers = std::clamp(std::thread::hardware_concurrency(), fewestWorkers, mostWorkers);
    std::vector<SheetPicture> pictures;
    std::map<QByteArray, QByteArray> encoded;
    {
        Progress progress;
        renderWithCrew(
            plan, workers,
            [&](SheetPicture picture) {
                if (!picture.png.isEmpty() && !encoded.contains(picture.id))
                    encoded[picture.id] = picture.png.toBase64();
                picture.png.clear();
                pictures.push_back(std::move(picture));
            },
            [&](std::size_t done, std::size_t all) { progress.show(done, all); });
    }
    auto sheet = documentFor(plan, std::move(pictures));
    sheet.pictures = std::move(encoded);
    if (earlier)
        sheet.compareWith(*earlier);
    const auto html = sheet.html();
    if (output.write(html) != html.size() || !output.commit())
        throw std::runtime_error(
            "The sheet " + file + " can't be written: " + output.errorString().toStdString() + ".");
    std::printf("%zu pictures%s\n", sheet.entries.size(),
        sheet.comparison ? (": " + sheet.comparison->summary() + ".").c_str() : ".");
    return 0;
}

}
