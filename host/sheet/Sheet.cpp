#include "Sheet.h"

#include "Interruption.h"
#include "SheetCrew.h"
#include "SheetDocument.h"
#include "SheetProgress.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <QFileInfo>
#include <QSaveFile>
#include <stdexcept>
#include <thread>
#include <tuple>

namespace host {

namespace {

constexpr int hasNotEnded = 2;
constexpr unsigned fewestWorkers = 2;
constexpr unsigned mostWorkers = 16;

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
    const auto jobs = plan.jobs();
    const auto place = [&](const SheetPicture& picture) {
        return std::tuple(jobs[picture.job].state, picture.page, picture.job);
    };
    std::sort(pictures.begin(), pictures.end(),
        [&](const SheetPicture& one, const SheetPicture& other) { return place(one) < place(other); });
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

SheetDocument render(
    const SheetPlan& plan, long patience, const Interruption& interruption, SheetProgress& progress)
{
    std::vector<SheetPicture> pictures;
    std::map<QByteArray, QByteArray> encoded;
    const SheetCrew crew {
        .workers = std::clamp(std::thread::hardware_concurrency(), fewestWorkers, mostWorkers),
        .patience = std::chrono::seconds(patience),
        .take =
            [&](SheetPicture picture) {
                if (!picture.png.isEmpty() && !encoded.contains(picture.id))
                    encoded[picture.id] = picture.png.toBase64();
                picture.png.clear();
                pictures.push_back(std::move(picture));
            },
        .tick = [&](std::size_t done, std::size_t all) { progress.show("Rendering", done, all); },
        .say = [&](const std::string& line) { progress.say(line); },
    };
    renderWithCrew(plan, crew, interruption);
    auto sheet = documentFor(plan, std::move(pictures));
    sheet.pictures = std::move(encoded);
    return sheet;
}

[[noreturn]] void failToWrite(const std::string& file, const QString& reason)
{
    throw std::runtime_error("The sheet " + file + " can't be written: " + reason.toStdString() + ".");
}

/// Before anything is rendered: it would be for nothing.
void checkIsWritable(const std::string& file)
{
    const auto name = QString::fromStdString(file);
    // Saving replaces what is there, be it a device.
    if (const QFileInfo info(name); info.exists() && !info.isFile())
        failToWrite(file, "It is no file");
    QSaveFile output(name);
    if (!output.open(QIODevice::WriteOnly))
        failToWrite(file, output.errorString());
}

void save(const SheetDocument& sheet, const std::string& file, const Interruption& interruption)
{
    QSaveFile output(QString::fromStdString(file));
    if (!output.open(QIODevice::WriteOnly) || !sheet.writeTo(output))
        failToWrite(file, output.errorString());
    interruption.check();
    if (!output.commit())
        failToWrite(file, output.errorString());
}

void makeSheet(const Options& options, const Interruption& interruption)
{
    const auto& [file, against, phones, scales, locales, patience] = options.sheet;
    std::optional<SheetDocument> earlier;
    if (!against.empty())
        earlier = SheetDocument::read(against);
    checkIsWritable(file);
    SheetDocument sheet;
    {
        SheetProgress progress;
        sheet = render(planFor(options), patience, interruption, progress);
        if (earlier) {
            sheet.compareWith(*earlier, [&](std::size_t done, std::size_t all) {
                interruption.check();
                progress.show("Comparing", done, all);
            });
        }
    }
    save(sheet, file, interruption);
    std::printf("%zu pictures%s\n", sheet.entries.size(),
        sheet.comparison ? (": " + sheet.comparison->summary() + ".").c_str() : ".");
    std::fflush(stdout);
}

}

int runSheet(const Options& options)
{
    // A file that may not become as long is told as any that can't be written.
    std::signal(SIGXFSZ, SIG_IGN);
    const Interruption interruption;
    try {
        makeSheet(options, interruption);
        return 0;
    } catch (const Interrupted&) {
        std::fputs("Interrupted: no sheet was written.\n", stderr);
    }
    return hasNotEnded; // As a rule what interrupted ends the process now.
}

}
