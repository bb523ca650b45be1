#include "app/reader/TalkativeReader.h"

#include "app/import/Importer.h"
#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/WatchedProgress.h"

#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkXMLImageDataWriter.h>

#include <gtest/gtest.h>
#include <istream>
#include <random>
#include <sstream>
#include <string>

namespace veldraw::tests {

namespace {

constexpr int textSize = 1000000; // some pieces

/// A stream over a text of which every place is known by its digits.
class TalkativeStream : public testing::Test
{
protected:
    static std::string digits()
    {
        std::string text;
        for (int n = 0; n < textSize / 8; ++n)
            text += std::to_string(10000000 + n);
        return text;
    }

    std::string const text = digits();
    std::stringbuf source{text, std::ios_base::in};
    int told = 0;
    app::TalkativeBuffer buffer{source, [this] { ++told; }};
    std::istream stream{&buffer};
};

} // namespace

TEST_F(TalkativeStream, ReadsWhatTheSourceHas)
{
    std::string read(text.size(), ' ');
    stream.read(read.data(), static_cast<std::streamsize>(read.size()));
    EXPECT_TRUE(read == text);
    EXPECT_GT(told, 3);
    EXPECT_EQ(stream.get(), std::istream::traits_type::eof());
}

TEST_F(TalkativeStream, GoesWhereItIsSent)
{
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        auto const place = static_cast<std::size_t>(random() % (textSize - 20));
        std::string read(8, ' ');
        switch (round % 3) {
        case 0:
            stream.seekg(static_cast<std::streamoff>(place), std::ios_base::beg);
            break;
        case 1:
            stream.seekg(static_cast<std::streamoff>(place) - stream.tellg(), std::ios_base::cur);
            break;
        default:
            stream.seekg(static_cast<std::streamoff>(place) - textSize, std::ios_base::end);
            break;
        }
        ASSERT_EQ(stream.tellg(), static_cast<std::streamoff>(place));
        stream.read(read.data(), 8);
        ASSERT_EQ(read, text.substr(place, 8));
        ASSERT_EQ(stream.tellg(), static_cast<std::streamoff>(place) + 8);
    }
}

TEST_F(TalkativeStream, ReadsNothingAgainThatIsAtHand)
{
    stream.seekg(100);
    stream.get();
    int const before = told;
    for (int place = 5000; place > 100; place -= 100) {
        stream.seekg(place);
        EXPECT_EQ(stream.get(), text[static_cast<std::size_t>(place)]);
    }
    EXPECT_EQ(told, before);
}

TEST(TextImport, HearsACancelWithinAnArray)
{
    constexpr int points = 200000;
    vtkNew<vtkFloatArray> values;
    values->SetName("value");
    values->SetNumberOfTuples(points);
    for (int n = 0; n < points; ++n)
        values->SetValue(n, static_cast<float>(n) / 7.0F);
    vtkNew<vtkImageData> image;
    image->SetDimensions(points, 1, 1);
    image->GetPointData()->AddArray(values);
    TemporaryFolder const folder;
    std::string const path = folder.path("text.vti");
    vtkNew<vtkXMLImageDataWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputData(image);
    writer->SetDataModeToAscii();
    ASSERT_EQ(writer->Write(), 1);
    int last = 0;
    for (bool isDone = false; !isDone && last < 100; ++last) {
        int calls = 0;
        try {
            WatchedProgress progress([&](double) { return ++calls <= last; });
            app::importFile(QString::fromStdString(path), app::Deferral::Auto, progress);
            isDone = true;
        } catch (kernel::Interrupted const&) {
            EXPECT_EQ(calls, last + 1) << "nothing is asked after that";
        }
    }
    EXPECT_GT(last, 6);
    EXPECT_LT(last, 100);
}

} // namespace veldraw::tests
