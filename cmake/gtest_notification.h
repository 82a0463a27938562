// GoogleTest wants a one-shot signal between threads, which this compiler's thread model lacks. The
// tests have one thread, so that nothing ever waits for it.
#pragma once

#ifdef __cplusplus
namespace testing::internal {

class Notification {
public:
    void Notify() {}
    void WaitForNotification() {}
};

}  // namespace testing::internal
#endif
