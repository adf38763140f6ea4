#pragma once

namespace trevandix {

/// Counts one more while it lives: how many of something are under way.
class WxRaised {
public:
    explicit WxRaised(int& counter) : counter_(counter) { ++counter_; }
    ~WxRaised() { --counter_; }
    WxRaised(const WxRaised&) = delete;
    WxRaised& operator=(const WxRaised&) = delete;

private:
    int& counter_;
};

}  // namespace trevandix
