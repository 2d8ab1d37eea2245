/// Memory that runs out at a chosen moment, and a count of what is held.
///
/// The test program replaces operator new. That reaches the library where it takes operator new from the program; a
/// Windows DLL has its own.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <new>

/// What the program and the library have asked operator new for, and not given back.
long LiveBlocks();

/// What has been asked of operator new since the last call.
struct SRequests
{
    std::size_t largest;
    std::size_t total;
};
SRequests TakeRequests();

/// Which requests are refused.
enum class ERefuse
{
    One,     ///< Only that one: what follows works again, as when another program lets go of memory.
    AllAfter ///< The one and all that follow.
};

/// Runs an action for which memory runs out.
/// @param granted requests that are still granted.
/// @return true when a request was refused.
bool RunsOut(long granted, ERefuse refuse, const std::function<void()>& action);

/// Tests that are skipped where the library does not take its memory from this program.
class Starved : public testing::Test
{
protected:
    void SetUp() override;

    /// Makes a subject and runs an operation on it with its first request for memory refused, then its second, and so
    /// on, until it needs no more. What the subject then is must pass the check, and nothing may leak.
    template <class MAKE, class RUN, class CHECK>
    static void AtEveryRequest(const MAKE& make, const RUN& run, const CHECK& check)
    {
        {
            auto rehearsal = make(); // What is made once and kept is made now.
            run(rehearsal);
            check(rehearsal);
        }
        for (const ERefuse refuse : {ERefuse::One, ERefuse::AllAfter})
        {
            bool struck = true;
            for (long granted = 0; struck && !HasFailure(); ++granted)
            {
                const long before = LiveBlocks();
                {
                    auto subject = make();
                    struck = RunsOut(granted, refuse, [&] { run(subject); });
                    check(subject);
                }
                EXPECT_EQ(LiveBlocks(), before) << "after " << granted << " requests";
                EXPECT_TRUE(struck || granted > 0) << "nothing asked for memory";
            }
        }
    }
};
