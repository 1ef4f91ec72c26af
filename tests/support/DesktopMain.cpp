#include <gtest/gtest.h>

#include <QApplication>

// Every test program draws without a display, whatever the environment says.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
