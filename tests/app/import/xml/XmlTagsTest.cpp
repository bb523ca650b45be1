#include "app/import/xml/XmlTags.h"

#include "app/files/ImportError.h"
#include "app/import/xml/XmlText.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellType.h>
#include <vtkImageData.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

std::vector<app::XmlTags::Tag> tagsOf(std::string const& text)
{
    TemporaryFolder const folder;
    kernel::Progress const unwatched;
    app::XmlTags tags(folder.write("a.xml", text), unwatched);
    std::vector<app::XmlTags::Tag> result;
    for (app::XmlTags::Tag tag; tags.next(tag);)
        result.push_back(tag);
    return result;
}

std::string namesOf(std::vector<app::XmlTags::Tag> const& tags)
{
    std::string text;
    for (app::XmlTags::Tag const& tag : tags)
        text += tag.name + " ";
    return text;
}

void expectVectors(vtkDataSet& grid, std::string const& fileName, std::string const& name)
{
    TemporaryFolder const folder;
    addPointValues(grid, name, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 3);
    addPointValues(grid, "after", {1, 2, 3, 4});
    for (Mode const mode : {Mode::Ascii, Mode::Base64, Mode::Base64Compressed, Mode::Raw, Mode::RawCompressed}) {
        std::string const path = writeXml(grid, folder.path(fileName), mode);
        for (app::Deferral const deferral : {app::Deferral::Never, app::Deferral::Auto, app::Deferral::Always}) {
            SCOPED_TRACE(name + " in " + fileName + ", mode " + std::to_string(static_cast<int>(mode)));
            auto const dataSet = import(path, deferral).dataSet;
            loadAll(*dataSet);
            EXPECT_EQ(variableNames(*dataSet), "X,Y,Z," + name + "_X," + name + "_Y," + name + "_Z,after");
            EXPECT_EQ(valuesOf(*dataSet, 1, name + "_Y"), "2 5 8 11");
            EXPECT_EQ(valuesOf(*dataSet, 1, "after"), "1 2 3 4");
        }
    }
}

} // namespace

TEST(ArrayName, MayHoldBracketsAndQuotesThatTheWriterLeftAsTheyAre)
{
    for (char const* name : {"grad>0", "'p'", "a='b'>c", "x>", ">", "--> y"}) {
        auto const image = vtkSmartPointer<vtkImageData>::New();
        image->SetDimensions(4, 1, 1);
        expectVectors(*image, "a.vti", name);
        expectVectors(*structuredGrid(2, 2, 1), "a.vts", name);
        expectVectors(*unstructuredGrid(4, {{VTK_QUAD, {0, 1, 2, 3}}}), "a.vtu", name);
    }
}

TEST(ArrayName, IsReadAsItIsMeantWhereItIsEscaped)
{
    TemporaryFolder const folder;
    auto const image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(2, 1, 1);
    addPointValues(*image, "a &lt;&#62;&quot;&apos;&amp;lt; &#xe9;", {1, 2});
    for (app::Deferral const deferral : {app::Deferral::Never, app::Deferral::Always}) {
        auto const dataSet = import(writeXml(*image, folder.path("a.vti")), deferral).dataSet;
        EXPECT_EQ(variableNames(*dataSet), "X,Y,Z,a <>\"'&lt; é");
    }
}

TEST(XmlTags, EndAtTheBracketThatIsNotQuoted)
{
    auto const tags = tagsOf("<A n=\"x>y\" m='\"' c = \"3\"><B n='/>'/></A>");
    EXPECT_EQ(namesOf(tags), "A B /A ");
    EXPECT_EQ(tags[0].text("n"), "x>y");
    EXPECT_EQ(tags[0].text("m"), "\"");
    EXPECT_EQ(tags[0].count("c", 1.0), 3.0);
    EXPECT_EQ(tags[1].text("n"), "/>");
}

TEST(XmlTags, AreNotLookedForInCommentsNorInWhatIsNoMarkup)
{
    EXPECT_EQ(namesOf(tagsOf("<?xml version=\"1.0\" a='>'?><!DOCTYPE A SYSTEM \"a>b.dtd\"><A><!-- <B> -- > it's -->"
                             "<![CDATA[<C> ]> ]]]><D/><!----></A><?x <E> ?>")),
              "A D /A ");
    EXPECT_EQ(namesOf(tagsOf("<A><!-- no end <B/>")), "A ");
}

TEST(XmlTags, StandFarFromTheStartToo)
{
    std::string const text(3 << 20, '7');
    EXPECT_EQ(namesOf(tagsOf("<A>" + text + "<!--" + text + "--><B/>")), "A B ");
}

TEST(XmlTags, AreRefusedWhereThatOfTheAppendedDataIsLong)
{
    auto const tagOf = [](std::size_t bytes) {
        return "<A><AppendedData encoding=\"raw\" note=\"" + std::string(bytes, 'x') + "\">_";
    };
    EXPECT_EQ(namesOf(tagsOf(tagOf(4000))), "A AppendedData ");
    EXPECT_THROW(tagsOf(tagOf(4096)), app::ImportError);
    EXPECT_EQ(namesOf(tagsOf("<A><DataArray note=\"" + std::string(100000, 'x') + "\"/>")), "A DataArray ");
}

TEST(XmlTags, HaveTheirEntitiesResolved)
{
    EXPECT_EQ(tagsOf("<A n=\"&#49;0\" t='app&#x65;nded'/>")[0].count("n", 1.0), 10.0);
    EXPECT_EQ(tagsOf("<A n=\"&#49;0\" t='app&#x65;nded'/>")[0].text("t"), "appended");
    EXPECT_EQ(app::xmlUnescaped("&lt;&gt;&amp;&quot;&apos;&amp;lt;"), "<>&\"'&lt;");
    EXPECT_EQ(app::xmlUnescaped("&#233;&#x20AC;&#x1F600;"), "é€😀");
    EXPECT_EQ(app::xmlUnescaped("a & b &; &x; &#; &#x; &#xg; &#99999999999; &lt"),
              "a & b &; &x; &#; &#x; &#xg; &#99999999999; &lt");
}

TEST(XmlTags, AreRefusedWhereTheFileDeclaresWhatTheyMean)
{
    TemporaryFolder const folder;
    std::string const path =
        folder.write("a.vti", "<!DOCTYPE VTKFile [<!ENTITY n \"0 99999 0 99999 0 9\">]>"
                              "<VTKFile type=\"ImageData\" byte_order=\"LittleEndian\"><ImageData WholeExtent=\"&n;\">"
                              "<Piece Extent=\"&n;\"/></ImageData></VTKFile>");
    EXPECT_THAT(problemWith(path), HasSubstr("entities of its own"));
}

} // namespace veldraw::tests
