#include "SheetWorker.h"

#include "host/driver/Driver.h"
#include "host/Pictures.h"
#include "IndexedPng.h"

#include <fstream>
#include <QCryptographicHash>
#include <sstream>
#include <stdexcept>

namespace host {

namespace {

namespace fs = std::filesystem;

/// What a sheet's clocks show.
constexpr const char* instant = "2014-01-05T10:17:42Z";
constexpr const char* preferencesFolder = "private/var/mobile/Library/Preferences";
constexpr const char* ownPreferences = "net.morvane.vekora.plist";

QByteArray idOf(const platform::Bitmap& picture)
{
    // Nobody forges pages; the hash only has to tell them apart.
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray::number(picture.width) + ' ');
    const auto pixels = static_cast<qsizetype>(picture.width) * picture.height;
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(picture.pixels.get()), pixels * 4));
    return hash.result().toHex().left(20);
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

void SheetWorker::prepareFiles(const SheetState& state) const
{
    std::error_code error;
    const auto folder = _root / preferencesFolder;
    fs::remove_all(folder, error);
    fs::create_directories(folder, error);
    if (state.preferences.empty())
        return;
    std::ofstream file(folder / ownPreferences);
    file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" << state.preferences
         << "</dict></plist>\n";
    if (!file.flush())
        throw std::runtime_error("The folder " + folder.string() + " can't be written.");
}

void SheetWorker::carryOut(Phone& phone, const SheetState& state)
{
    Driver driver(phone);
    std::istringstream script { std::string(state.script) };
    for (std::string line; std::getline(script, line);) {
        const auto answer = driver.carryOut(line);
        if (answer && !answer->value("ok").toBool())
            throw std::runtime_error("The state \"" + std::string(state.name)
                + "\" can't be reached: " + answer->value("error").toString().toStdString());
    }
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

void SheetWorker::render(std::size_t job, const std::function<void(const SheetPicture&)>& take)
{
    const auto& state = _plan.states[_jobs[job].state];
    prepareFiles(state);
    Phone phone(optionsFor(_jobs[job]));
    if (const auto error = phone.openBundle())
        throw std::runtime_error(*error);
    phone.settle();
    carryOut(phone, state);
    phone.settle();
    const auto takePage = [&](std::size_t number, const std::string& title) {
        auto picture = pictureOf(phone);
        picture.job = job;
        picture.page = number;
        picture.title = title;
        take(picture);
    };
    const auto* const page = phone.navigation().topViewController();
    if (state.everyPage)
        visitEveryPage(phone, takePage);
    else
        takePage(1, page ? page->title() : std::string());
}

}
