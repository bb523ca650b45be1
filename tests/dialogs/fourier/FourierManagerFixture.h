#pragma once

#include "tests/dialogs/fourier/FourierFixture.h"
#include "tests/support/KernelSpy.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// A manager that is to transform Y over X in the zone Wing, with the spy on the kernel.
class FourierManagerFixture : public FourierFixture
{
protected:
    using Manager = FourierTransformPropertiesManager;

    FourierManagerFixture()
    {
        manager.dependentVariables()->setValue({2});
        manager.sourceZones()->setValue({1});
    }

    std::string const noTransform = "error: Insufficient resources to perform Fourier transform.";
    std::string const noFrame = "error: Fourier Transform succeeded but results frame could not be created.";

    Manager const manager;
    KernelSpy spy;
};

} // namespace veldraw::tests
