#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

// A timer that ticks once after it is enabled, then stays quiet until it is
// enabled again. Its tick runs on the user-interface thread like any event.
class OneShotTimer : public QObject {
    Q_OBJECT
public:
    OneShotTimer(QObject* parent, int intervalMs, std::function<void()> tick);
    void SetEnabled(bool enabled);
    bool Enabled() const { return Timer_.isActive(); }

private:
    QTimer Timer_;
};
