#include <csignal>

/// What every sample application is: a program that runs until it is asked to quit.
int main()
{
    sigset_t requests;
    sigemptyset(&requests);
    sigaddset(&requests, SIGTERM);
    sigaddset(&requests, SIGINT);
    sigaddset(&requests, SIGHUP);
    sigprocmask(SIG_BLOCK, &requests, nullptr);
    int signal = 0;
    while (sigwait(&requests, &signal) != 0) { }
    return 0;
}
