// Many pieces of work at a time, with their results in order.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace tavisk {

/// Runs `work(i)` for every `i` below `count`, on up to `jobs` threads, and hands each result to
/// `take` on the calling thread, in the order of `i`. The first exception of either ends it: what
/// is at work is finished and dropped, and the exception travels.
template <class Work, class Take>
void inOrder(std::size_t count, std::size_t jobs, Work work, Take take) {
    using Result = std::invoke_result_t<Work&, std::size_t>;
    std::vector<std::optional<std::variant<Result, std::exception_ptr>>> results(count);
    std::mutex mutex;
    std::condition_variable ready;
    std::atomic<std::size_t> next = 0;

    const auto run = [&](const std::stop_token& stop) {
        for (;;) {
            const std::size_t i = next++;
            if (i >= count || stop.stop_requested()) return;
            std::variant<Result, std::exception_ptr> result;
            try {
                result.template emplace<0>(work(i));
            } catch (...) {
                result.template emplace<1>(std::current_exception());
            }
            {
                const std::lock_guard lock(mutex);
                results[i] = std::move(result);
            }
            ready.notify_one();
        }
    };

    std::vector<std::jthread> threads;
    try {
        const std::size_t wanted = std::min(jobs, count);
        while (wanted > 1 && threads.size() < wanted)
            threads.emplace_back(run);
    } catch (const std::system_error&) {
        // The system gives no more; those that are there will do.
    }
    const auto stopAll = [&threads] {
        for (std::jthread& thread : threads)
            thread.request_stop();
    };
    try {
        for (std::size_t i = 0; i < count; ++i) {
            if (threads.empty()) {
                take(work(i));
                continue;
            }
            std::unique_lock lock(mutex);
            ready.wait(lock, [&] { return results[i].has_value(); });
            std::variant<Result, std::exception_ptr> result = std::move(*results[i]);
            lock.unlock();
            if (const auto* error = std::get_if<1>(&result)) std::rethrow_exception(*error);
            take(std::get<0>(std::move(result)));
        }
    } catch (...) {
        stopAll();
        throw;
    }
}

}  // namespace tavisk
