#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns the signals by which the stand-in's programs are asked for something into Qt signals.
/// One per process. Handlers, not a blocked mask, so that launched programs start with a clean
/// slate.
class Signals final : public QObject {
    Q_OBJECT

public:
    explicit Signals(QObject *parent = nullptr);
    ~Signals() override;
    Q_DISABLE_COPY_MOVE(Signals)

    /// Notices SIGUSR1 too, which ends a program that does not ask for it.
    void listenForShowRequests();

Q_SIGNALS:
    void terminationRequested();
    void showRequested(int anchor); ///< 0 or less: nowhere in particular

private:
    void readPipe();

    QSocketNotifier *m_notifier{};
};
