#include "ui/oneshottimer.h"

OneShotTimer::OneShotTimer(QObject* parent, int intervalMs, std::function<void()> tick)
    : QObject(parent) {
    Timer_.setSingleShot(true);
    Timer_.setInterval(intervalMs);
    connect(&Timer_, &QTimer::timeout, this, std::move(tick));
}

void OneShotTimer::SetEnabled(bool enabled) {
    if (enabled)
        Timer_.start();
    else
        Timer_.stop();
}
