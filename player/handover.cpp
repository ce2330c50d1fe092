#include "player/handover.h"

#include "player/machine.h"

#include <algorithm>
#include <cstring>
#include <thread>

namespace player
{

namespace
{

bool sameRow(const Image& one, const Image& other, int y)
{
    return std::memcmp(one.row(y), other.row(y), screenWidth * sizeof(Pixel)) == 0;
}

// Most frames of a game equal the one before or differ in a few rows.
Rows differentRows(const Image& one, const Image& other)
{
    Rows rows{0, screenHeight};
    while (!rows.empty() && sameRow(one, other, rows.first)) {
        ++rows.first;
    }
    while (!rows.empty() && sameRow(one, other, rows.last - 1)) {
        --rows.last;
    }
    return rows;
}

Rows joined(Rows one, Rows other)
{
    if (one.empty() || other.empty()) {
        return one.empty() ? other : one;
    }
    return {std::min(one.first, other.first), std::max(one.last, other.last)};
}

} // namespace

Handover::Handover(bool hasViewer)
    : hasViewer_(hasViewer)
    , picture_(screenWidth, screenHeight, Image::Kind::AlwaysOpaque)
{
}

void Handover::present(const Image& frame)
{
    const Rows rows = differentRows(frame, picture_);
    if (rows.empty()) {
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        std::copy_n(frame.row(rows.first), screenWidth * (rows.last - rows.first), picture_.row(rows.first));
        changed_ = joined(changed_, rows);
    }
    news_.notify_one();
}

Instant Handover::now()
{
    return std::chrono::steady_clock::now() - start_;
}

void Handover::sleepUntil(Instant when)
{
    std::this_thread::sleep_until(start_ + when);
}

void Handover::end()
{
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    news_.notify_one();
}

Handover::News Handover::await(Instant when, bool endOnly)
{
    std::unique_lock lock(mutex_);
    news_.wait_until(lock, start_ + when, [&] { return ended_ || (!endOnly && !changed_.empty()); });
    if (ended_) {
        return News::Ended;
    }
    return endOnly || changed_.empty() ? News::None : News::Picture;
}

void Handover::show(bool always, const std::function<void(const Image& picture, Rows changed)>& show)
{
    const std::lock_guard lock(mutex_);
    if (always || !changed_.empty()) {
        show(picture_, changed_);
        changed_ = {0, 0};
    }
}

void Handover::setButtons(Buttons held, Buttons taken)
{
    held_ = held;
    tapped_ |= taken;
}

} // namespace player
