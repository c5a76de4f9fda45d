#include "sandbox/common/signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct Message {
    int signal;
    int value;
};

// Written by the handler, which may only use what is safe in one.
std::array<int, 2> pipeEnds{-1, -1};

void handle(int signal, siginfo_t *info, void * /*context*/)
{
    const int before = errno;
    const Message message{signal, info && info->si_code == SI_QUEUE ? info->si_value.sival_int : 0};
    [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &message, sizeof message);
    errno = before;
}

void install(int signal)
{
    struct sigaction action { };
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

Signals::Signals(QObject *parent)
    : QObject(parent)
{
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("no pipe for signals");
    m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &Signals::readPipe);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        install(signal);
}

Signals::~Signals()
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGUSR1})
        std::signal(signal, signal == SIGUSR1 ? SIG_IGN : SIG_DFL);
    m_notifier->setEnabled(false);
    for (int &end : pipeEnds)
        close(std::exchange(end, -1));
}

void Signals::listenForShowRequests()
{
    install(SIGUSR1);
}

void Signals::readPipe()
{
    Message message{};
    while (read(pipeEnds[0], &message, sizeof message) == sizeof message) {
        if (message.signal == SIGUSR1)
            Q_EMIT showRequested(message.value);
        else
            Q_EMIT terminationRequested();
    }
}
