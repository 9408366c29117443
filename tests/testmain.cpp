#include <gtest/gtest.h>

#include <QApplication>

#include "support/offscreen.h"

// The tests run without a display: Qt's offscreen platform stands in for one.
int main(int argc, char** argv) {
    UseOffscreenPlatform();
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
