#include "app/vtk/VtkErrorCapture.h"

#include <vtkOutputWindow.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

void complain(char const* text)
{
    vtkOutputWindow::GetInstance()->DisplayErrorText(text);
}

} // namespace

TEST(VtkErrorCapture, KeepsWhatTheFirstErrorSaysAndNothingOfWhereItCameFrom)
{
    app::VtkErrorCapture const errors;
    EXPECT_FALSE(errors.hasErrors());
    EXPECT_EQ(errors.firstError(), "");
    complain("ERROR: In /vtk/IO/XML/vtkXMLReader.cxx, line 12\nvtkXMLImageDataReader (0x55d0c8a0): The array is\n  too "
             "short.\n\n");
    complain("ERROR: In a.cxx, line 1\nvtkOther (0x1): Another.\n\n");
    EXPECT_TRUE(errors.hasErrors());
    EXPECT_EQ(errors.firstError(), "The array is too short");
}

TEST(VtkErrorCapture, HasNoReasonWhereTheAlgorithmsNameIsAllThatIsTold)
{
    app::VtkErrorCapture const errors;
    complain(
        "ERROR: In vtkExecutive.cxx, line 741\nvtkCompositeDataPipeline (0x55d0): Algorithm "
        "vtkXMLStructuredGridWriter(0x55d0c8a0) returned failure for request: vtkInformation (0x7f)\n  Debug: Off\n\n");
    EXPECT_TRUE(errors.hasErrors());
    EXPECT_EQ(errors.firstError(), "");
    complain("ERROR: In b.cxx, line 2\nvtkThing (0x2): The disk is full.\n\n");
    EXPECT_EQ(errors.firstError(), "The disk is full");
}

TEST(VtkErrorCapture, LeavesAddressesOfObjectsOut)
{
    app::VtkErrorCapture const errors;
    complain("ERROR: In c.cxx, line 3\nvtkThing (0x2): Input of vtkOther (0x55aa) is missing, and (0x1) too.\n\n");
    EXPECT_EQ(errors.firstError(), "Input of vtkOther is missing, and too");
}

} // namespace veldraw::tests
