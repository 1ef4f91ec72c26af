#include "TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QApplication>

// Every test program draws without a display, and finds and leaves nothing in anybody's home, whatever the
// environment says.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const TemporaryFolder home;
    const auto path = QByteArray::fromStdString(home.path().string());
    for (const char* name :
        { "HOME", "XDG_RUNTIME_DIR", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME" })
        qputenv(name, path);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
