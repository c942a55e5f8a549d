// Under Wine a wait for another thread by std::latch or std::future has hung; so one thread asks
// here until the other has been there.
#include "command/inOrder.h"

#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <numeric>
#include <stdexcept>
#include <thread>
#include <vector>

namespace tavisk {
namespace {

using Numbers = std::vector<std::size_t>;

Numbers counted(std::size_t count) {
    Numbers numbers(count);
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    return numbers;
}

TEST(InOrder, ResultsComeInOrderWhateverTheNumberOfJobs) {
    for (const std::size_t jobs : {1u, 2u, 7u, 256u}) {
        Numbers taken;
        inOrder(
            100, jobs, [](std::size_t i) { return i; },
            [&](std::size_t result) { taken.push_back(result); });
        EXPECT_EQ(taken, counted(100)) << jobs;
    }
}

TEST(InOrder, NothingToDo) {
    inOrder(
        0, 4, [](std::size_t i) { return i; }, [](std::size_t) { FAIL(); });
}

TEST(InOrder, AResultThatIsReadyWaitsForTheOnesBefore) {
    std::atomic<bool> secondIsDone = false;
    Numbers taken;
    inOrder(
        2, 2,
        [&](std::size_t i) {
            if (i == 0) {
                while (!secondIsDone)
                    std::this_thread::yield();
            } else {
                secondIsDone = true;
            }
            return i;
        },
        [&](std::size_t result) { taken.push_back(result); });
    EXPECT_EQ(taken, counted(2));
}

TEST(InOrder, WorkIsDoneOnAsManyThreadsAsThereAreJobs) {
    std::mutex mutex;
    std::condition_variable another;
    std::size_t here = 0;
    inOrder(
        4, 4,
        [&](std::size_t i) {
            std::unique_lock lock(mutex);
            ++here;
            another.notify_all();
            another.wait(lock, [&] { return here == 4; });
            return i;
        },
        [](std::size_t) {});
    EXPECT_EQ(here, 4U);
}

TEST(InOrder, OneJobWorksOnTheCallingThread) {
    const std::thread::id here = std::this_thread::get_id();
    inOrder(
        3, 1, [&](std::size_t) { return std::this_thread::get_id(); },
        [&](std::thread::id id) { EXPECT_EQ(id, here); });
}

TEST(InOrder, AnExceptionOfTheWorkTravelsInItsTurn) {
    for (const std::size_t jobs : {1u, 3u}) {
        Numbers taken;
        const auto work = [](std::size_t i) {
            if (i == 2) throw std::runtime_error("third");
            return i;
        };
        EXPECT_THROW(inOrder(10, jobs, work, [&](std::size_t result) { taken.push_back(result); }),
                     std::runtime_error);
        EXPECT_EQ(taken, counted(2)) << jobs;
    }
}

TEST(InOrder, AnExceptionOfTheTakerEndsTheWork) {
    for (const std::size_t jobs : {1u, 3u}) {
        EXPECT_THROW(inOrder(
                         1000, jobs, [](std::size_t i) { return i; },
                         [](std::size_t) { throw std::runtime_error("full"); }),
                     std::runtime_error)
            << jobs;
    }
}

}  // namespace
}  // namespace tavisk
