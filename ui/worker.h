#pragma once

#include <QFuture>
#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <type_traits>

/// Threads for questions that take a while. Each is answered by one value; who asked may be gone
/// by then.
class Worker {
public:
    Worker() { m_threads.setExpiryTimeout(0); } // one that waits for more would wake up to end
    /// Waits for what still runs.
    ~Worker() { m_threads.waitForDone(); }
    Q_DISABLE_COPY_MOVE(Worker)

    /// `question` throws nothing.
    template <typename Question> [[nodiscard]] auto ask(Question question)
    {
        using Answer = std::invoke_result_t<Question>;
        const auto promise = std::make_shared<QPromise<Answer>>();
        promise->start();
        m_threads.start([question = std::move(question), promise] {
            promise->addResult(question());
            promise->finish();
        });
        return promise->future();
    }

private:
    QThreadPool m_threads;
};
