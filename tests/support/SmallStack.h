// A stack as small as hosts may have.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#if !defined(_WIN32)
#include <pthread.h>
#endif

/// Runs an action on a stack of 1 MB, which is what the programs of Windows have anyway.
inline void OnSmallStack(const std::function<void()>& action)
{
#if defined(_WIN32)
    action();
#else
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 1 << 20), 0);
    const auto run = [](void* work) -> void*
    {
        (*static_cast<const std::function<void()>*>(work))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&action)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
#endif
}
