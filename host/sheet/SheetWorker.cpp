#include "SheetWorker.h"

#include "host/driver/Driver.h"
#include "host/Pictures.h"
#include "IndexedPng.h"

#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace host {

namespace {

namespace fs = std::filesystem;

/// What a sheet's clocks show.
constexpr const char* instant = "2014-01-05T10:17:42Z";
constexpr const char* preferencesFolder = "private/var/mobile/Library/Preferences";
constexpr const char* ownPreferences = "net.morvane.vekora.plist";

/// The product's halves, folded: every bit of both numbers reaches every bit.
quint64 mix(quint64 one, quint64 other)
{
    __extension__ using Wide = unsigned __int128;
    const auto product = static_cast<Wide>(one) * other;
    return static_cast<quint64>(product) ^ static_cast<quint64>(product >> 64);
}

/// Nobody forges pages: the mark only has to tell them apart, and not to take longer than painting them.
QByteArray idOf(const platform::Bitmap& picture)
{
    constexpr quint64 first = 0x9E3779B97F4A7C15U;
    constexpr quint64 second = 0xD6E8FEB86659FD93U;
    quint64 left = first ^ static_cast<quint64>(picture.width);
    quint64 right = second ^ static_cast<quint64>(picture.height);
    const auto* pixel = picture.pixels.get();
    const auto* const end = pixel + static_cast<std::ptrdiff_t>(picture.width) * picture.height;
    for (; end - pixel >= 4; pixel += 4) {
        quint64 words[2];
        std::memcpy(words, pixel, sizeof words);
        left = mix(left ^ words[0], first) + words[1];
        right = mix(right ^ words[1], second) + words[0];
    }
    for (; pixel != end; ++pixel)
        left = mix(left ^ *pixel, second);
    const auto hexadecimal
        = [](quint64 number) { return QByteArray::number(number, 16).rightJustified(16, '0'); };
    return hexadecimal(mix(left, second) ^ right) + hexadecimal(mix(right, first) ^ left);
}

}

SheetWorker::SheetWorker(const SheetPlan& plan, fs::path root)
    : _plan(plan)
    , _jobs(plan.jobs())
    , _root(std::move(root))
{
}

PhoneOptions SheetWorker::optionsFor(const SheetPlan::Job& job) const
{
    const auto& state = _plan.states[job.state];
    PhoneOptions options;
    options.root = _root.string();
    options.size = _plan.phones[job.phone];
    options.scale = _plan.scales[job.scale];
    options.locale = _plan.locales[job.locale];
    options.timeZone = "UTC";
    options.now = instant;
    options.toggle = state.toggle;
    options.statusBar = state.statusBar;
    options.bundle = _plan.bundle;
    return options;
}

std::optional<std::string> SheetWorker::prepareFiles(const SheetState& state) const
{
    std::error_code error;
    const auto folder = _root / preferencesFolder;
    fs::remove_all(folder, error);
    fs::create_directories(folder, error);
    if (state.preferences.empty())
        return std::nullopt;
    std::ofstream file(folder / ownPreferences);
    file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" << state.preferences
         << "</dict></plist>\n";
    if (file.flush())
        return std::nullopt;
    return "The file " + (folder / ownPreferences).string() + " can't be written.";
}

std::optional<std::string> SheetWorker::carryOut(Phone& phone, const SheetState& state)
{
    Driver driver(phone);
    std::istringstream script { std::string(state.script) };
    for (std::string line; std::getline(script, line);) {
        const auto answer = driver.carryOut(line);
        if (answer && !answer->value("ok").toBool())
            return answer->value("error").toString().toStdString();
    }
    return std::nullopt;
}

SheetPicture SheetWorker::pictureOf(Phone& phone)
{
    const auto& bitmap = phone.window().picture();
    SheetPicture picture;
    picture.id = idOf(bitmap);
    picture.width = bitmap.width;
    picture.height = bitmap.height;
    if (_sent.insert(picture.id).second)
        picture.png = indexedPng(bitmap);
    return picture;
}

std::optional<std::string> SheetWorker::render(
    std::size_t job, const std::function<void(const SheetPicture&)>& take)
{
    const auto& state = _plan.states[_jobs[job].state];
    if (auto error = prepareFiles(state))
        return error;
    std::optional<Phone> phone;
    try {
        phone.emplace(optionsFor(_jobs[job]));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    if (auto error = phone->openBundle())
        return error;
    phone->settle();
    if (const auto error = carryOut(*phone, state))
        return _plan.textOf(job) + ": the state can't be reached: " + *error;
    phone->settle();
    const auto takePage = [&](std::size_t number, const std::string& title) {
        auto picture = pictureOf(*phone);
        picture.job = job;
        picture.page = number;
        picture.title = title;
        take(picture);
    };
    const auto* const page = phone->navigation().topViewController();
    if (state.everyPage)
        visitEveryPage(*phone, takePage);
    else
        takePage(1, page ? page->title() : std::string());
    return std::nullopt;
}

}
