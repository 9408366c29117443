#include <gtest/gtest.h>

#include <QApplication>

// The tests run without a display: Qt's offscreen platform stands in for one.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
