#include "app/reader/PlaceholderFile.h"

#include "tests/app/support/FileHelpers.h"

#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace veldraw::tests {

namespace {

std::string legacy(std::string const& body, std::string const& kind = "ASCII")
{
    return "# vtk DataFile Version 5.1\nnan in a title\n" + kind + "\nDATASET POLYDATA\n" + body;
}

class PlaceholderFileTest : public ::testing::Test
{
protected:
    std::optional<app::PlaceholderFile> fileOf(std::string const& content, int attempt = 0) const
    {
        return app::PlaceholderFile::of(folder.write("a.vtk", content), attempt);
    }

    TemporaryFolder const folder;
};

} // namespace

TEST_F(PlaceholderFileTest, IsMadeOfTextsWithSuchNumbersAlone)
{
    EXPECT_FALSE(fileOf(legacy("POINTS 1 float\n1 2 3\n")));
    EXPECT_FALSE(fileOf(legacy("POINTS 1 float\n1 nan 3\n", "BINARY")));
    EXPECT_FALSE(fileOf(legacy("POINT_DATA 1\nSCALARS nan float\nLOOKUP_TABLE inf\n5\n"))) << "names are no numbers";
    EXPECT_FALSE(fileOf(legacy("FIELD FieldData 1\nnan 1 1 double\n5\n")));
    EXPECT_TRUE(fileOf(legacy("POINTS 1 float\n1 nan 3\n")));
    EXPECT_TRUE(fileOf(legacy("POINTS 1 float\r\n1 -inf 3\r\n")));
}

TEST_F(PlaceholderFileTest, HasPlaceholdersAndAllElseAsItIs)
{
    auto const file = fileOf(legacy("FIELD FieldData 1\nnan 1 4 double\n5 nan  inf\t-INF\n"));
    ASSERT_TRUE(file);
    std::string const text = contentOf(file->path());
    EXPECT_EQ(text.find("nan in a title"), legacy("").find("nan in a title"));
    EXPECT_NE(text.find("\nnan 1 4 double\n5 -7."), std::string::npos) << text;
    EXPECT_EQ(text.find("inf"), std::string::npos);
    EXPECT_EQ(text.find("INF"), std::string::npos);
}

TEST_F(PlaceholderFileTest, GivesTheNumbersBack)
{
    auto const file = fileOf(legacy("POINTS 1 float\nnan 2 nan\n1 inf -inf\n"));
    ASSERT_TRUE(file);
    std::istringstream text(contentOf(file->path()));
    std::string line;
    for (int n = 0; n < 5; ++n)
        std::getline(text, line);
    std::vector<std::string> words(6);
    for (std::string& word : words)
        text >> word;
    vtkNew<vtkFloatArray> coordinates;
    coordinates->SetNumberOfComponents(3);
    coordinates->InsertNextTuple3(std::stof(words[0]), std::stof(words[1]), std::stof(words[2]));
    vtkNew<vtkPoints> points;
    points->SetData(coordinates);
    vtkNew<vtkDoubleArray> values;
    values->SetName("v");
    for (int n = 3; n < 6; ++n)
        values->InsertNextValue(std::stod(words[static_cast<std::size_t>(n)]));
    vtkNew<vtkPolyData> grid;
    grid->SetPoints(points);
    grid->GetFieldData()->AddArray(values);
    grid->GetPointData()->AddArray(values); // the same, which counts once
    ASSERT_TRUE(file->restore(*grid));
    EXPECT_TRUE(std::isnan(coordinates->GetValue(0)));
    EXPECT_EQ(coordinates->GetValue(1), 2.0F);
    EXPECT_TRUE(std::isnan(coordinates->GetValue(2)));
    EXPECT_EQ(values->GetValue(0), 1.0);
    EXPECT_EQ(values->GetValue(1), std::numeric_limits<double>::infinity());
    EXPECT_EQ(values->GetValue(2), -std::numeric_limits<double>::infinity());
}

TEST_F(PlaceholderFileTest, TellsThatAnotherNumberWasTakenForOne)
{
    std::string const content = legacy("POINTS 1 float\nnan 2 3\n");
    auto const file = fileOf(content);
    ASSERT_TRUE(file);
    std::string const text = contentOf(file->path());
    std::size_t const at = text.find("-7.");
    double const placeholder = std::stod(text.substr(at));
    vtkNew<vtkDoubleArray> values;
    values->InsertNextValue(placeholder);
    values->InsertNextValue(placeholder); // stood in the file as it is
    vtkNew<vtkPolyData> grid;
    grid->GetFieldData()->AddArray(values);
    EXPECT_FALSE(file->restore(*grid));
    EXPECT_NE(contentOf(fileOf(content, 1)->path()), text) << "another attempt has others";
}

} // namespace veldraw::tests
