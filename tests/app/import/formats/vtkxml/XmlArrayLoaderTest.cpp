#include "app/import/formats/vtkxml/XmlArrayLoader.h"

#include "kernel/operations/LoadVariables.h"
#include "kernel/session/Session.h"
#include "tests/app/support/FileHelpers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// A compressed block of each array is damaged, which is found when it is wanted.
TEST(XmlArrayLoader, NamesFileVariableAndZoneWhenALateLoadFails)
{
    std::string const path = std::string(VELDRAW_CORPUS) + "late.vtu";
    kernel::Session session;
    auto const frame = std::make_shared<kernel::Frame>("late", kernel::Rectangle{});
    frame->dataSet = import(path, app::Deferral::Always).dataSet;
    session.openPage({frame});
    int const variable = frame->dataSet->findVariable("vel_X");
    EXPECT_FALSE(session.perform(kernel::LoadVariables(*frame->dataSet, {1}, {variable})));
    EXPECT_THAT(session.lastError(),
                AllOf(StartsWith("\"vel_X\" of zone \"late\" cannot be loaded: \"" + path + "\": it is damaged"),
                      Not(HasSubstr("0x")), Not(HasSubstr("Algorithm"))));
    EXPECT_FALSE(frame->dataSet->field(1, variable)->isLoaded());
}

} // namespace veldraw::tests
