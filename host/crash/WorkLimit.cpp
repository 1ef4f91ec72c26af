#include "WorkLimit.h"

#include <QAbstractEventDispatcher>

#include <csignal>
#include <unistd.h>

namespace host {

WorkLimit::WorkLimit()
{
    sigevent event {};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = SIGXCPU;
    event._sigev_un._tid = ::gettid();
    timer_t timer {};
    if (::timer_create(CLOCK_THREAD_CPUTIME_ID, &event, &timer) != 0)
        return;
    _timer = timer;
    beginRound();
    // Nested loops have rounds of their own. Not every kind of loop tells of both.
    const auto* const loop = QAbstractEventDispatcher::instance();
    for (const auto signal : { &QAbstractEventDispatcher::awake, &QAbstractEventDispatcher::aboutToBlock })
        QObject::connect(loop, signal, &_rounds, [this] { beginRound(); });
}

WorkLimit::~WorkLimit()
{
    if (_timer)
        ::timer_delete(*_timer);
}

void WorkLimit::beginRound() const
{
    itimerspec time {};
    time.it_value.tv_sec = mostSeconds;
    ::timer_settime(*_timer, 0, &time, nullptr);
}

}
