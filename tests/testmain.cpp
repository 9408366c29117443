#include <gtest/gtest.h>

#include "support/offscreen.h"

#ifdef TARNWEY_TEST_WIDGETS
#include <QApplication>
using TestApplication = QApplication;
#else
// The model's tests need no widget; the fixture library draws its tile banks
// with Qt Gui.
#include <QGuiApplication>
using TestApplication = QGuiApplication;
#endif

// The tests run without a display: Qt's offscreen platform stands in for one.
int main(int argc, char** argv) {
    UseOffscreenPlatform();
    TestApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
