/// Permissions bind nobody who is the administrator, so tests of them step down.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

/// Runs the action as somebody whom the permissions of files bind: in a process of its own when the tests run
/// as the administrator, so that only its files tell what it did.
inline void asOrdinaryUser(const std::function<void()>& action)
{
    if (::geteuid() != 0) {
        action();
        return;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        const bool changed = ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
        if (changed) {
            action();
        }
        ::_exit(changed ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}
