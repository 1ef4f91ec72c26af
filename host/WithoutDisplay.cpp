#include "WithoutDisplay.h"

#include <clocale>
#include <cstdio>

namespace host {

namespace {

void passOnErrors(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

// It counts only while nobody else may enter it. A root that can't be made is told of later, by whoever needs
// it.
void useSocketFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error)
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    if (!error)
        qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(folder.string()));
}

}

std::unique_ptr<QApplication> applicationWithoutDisplay(const std::filesystem::path& root)
{
    static char name[] = "vekora";
    static char* arguments[] = { name, nullptr };
    static int count = 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        useSocketFolder(root / "private/var/run");
    const auto usual = qInstallMessageHandler(passOnErrors);
    auto application = std::make_unique<QApplication>(count, arguments);
    qInstallMessageHandler(usual);
    // The application has taken the environment's; numbers in files have a point in every country.
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

}
