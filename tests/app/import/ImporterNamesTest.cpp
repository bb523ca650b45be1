// Names in files that are no UTF-8.
#include "app/import/Importer.h"
#include "tests/app/support/FileHelpers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

// A text as VTK writes it into a file with values as text: a number for each byte, and a zero.
std::string numbersOf(std::string const& text)
{
    std::string numbers;
    for (char const c : text)
        numbers += std::to_string(static_cast<unsigned char>(c)) + " ";
    return numbers + "0 ";
}

std::string textArray(std::string const& name, std::vector<std::string> const& values)
{
    std::string array = "<Array type=\"String\" Name=\"" + name + "\" NumberOfTuples=\"" +
                        std::to_string(values.size()) + "\" format=\"ascii\">";
    for (std::string const& value : values)
        array += numbersOf(value);
    return array + "</Array>";
}

} // namespace

TEST(NamesInFiles, AreRepairedWhereAVtkFileHasThemAsBytes)
{
    TemporaryFolder const folder;
    std::string const path = folder.write(
        "a.vti",
        "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\"><ImageData WholeExtent=\"0 2 0 0 "
        "0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\"><FieldData>" +
            textArray("ZoneName", {"Fl\xfcgel"}) + textArray("CoordinateNames", {"L\xe4nge", "y", "z"}) +
            textArray("VariableNames", {"H\xf6he", "L\xe4nge"}) +
            textArray("ArrayVariables", {"PointData", "p", "1", "H\xf6he"}) +
            "</FieldData><Piece Extent=\"0 2 0 0 0 0\"><PointData><DataArray type=\"Float32\" Name=\"p\" "
            "format=\"ascii\">1 2 3</DataArray></PointData></Piece></ImageData></VTKFile>");
    for (app::Deferral const deferral : {app::Deferral::Auto, app::Deferral::Always}) {
        auto const dataSet = import(path, deferral).dataSet;
        EXPECT_EQ(dataSet->zone(1)->name, "Flügel");
        EXPECT_EQ(variableNames(*dataSet), "Höhe,Länge,y,z");
        EXPECT_EQ(fieldOf(*dataSet, 1, "Höhe").group()->size(), 3);
    }
}

TEST(NamesInFiles, AreRepairedInLegacyFiles)
{
    TemporaryFolder const folder;
    std::string const path =
        folder.write("a.vtk", "# vtk DataFile Version 3.0\nMessung in Stra\xdf"
                              "e\nASCII\nDATASET STRUCTURED_POINTS\nDIMENSIONS 3 1 1\nORIGIN 0 0 0\nSPACING 1 1 1\n"
                              "POINT_DATA 3\nSCALARS H\xf6he float 1\nLOOKUP_TABLE default\n1 2 3\n");
    auto const dataSet = import(path).dataSet;
    EXPECT_EQ(valuesOf(*dataSet, 1, "Höhe"), "1 2 3") << variableNames(*dataSet);
}

TEST(NamesInFiles, AreRepairedInMessages)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("a.mhd", "ObjectType = Image\nDimSize = 3\nElementType = MET_UCHAR\n"
                                                  "ElementDataFile = Stra\xdf"
                                                  "e.raw\n")),
                HasSubstr("Straße.raw\": there is no such file"));
}

TEST(NamesInFiles, OfTheFileItselfHaveToBeUtf8)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("Stra\xdf"
                                          "e.csv",
                                          "a\n1\n");
    EXPECT_THAT(problemWith(QString::fromUtf8(path.data(), static_cast<int>(path.size())).toStdString()),
                HasSubstr("its name is no UTF-8, so that it cannot be found"));
    EXPECT_EQ(problemWith(folder.write("\ufffd.csv", "a\n1\n")), "") << "is a letter like others";
}

} // namespace veldraw::tests
