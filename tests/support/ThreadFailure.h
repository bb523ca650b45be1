#pragma once

namespace veldraw::tests {

/// Has the system give no more threads to this process as long as the object lives. The test program has to contain ThreadFailure.cpp.
class ThreadFailure
{
public:
    ThreadFailure();
    ~ThreadFailure();

    /// How many have been asked for in vain.
    int refused() const;

    ThreadFailure(ThreadFailure const&) = delete;
    ThreadFailure& operator=(ThreadFailure const&) = delete;
};

} // namespace veldraw::tests
