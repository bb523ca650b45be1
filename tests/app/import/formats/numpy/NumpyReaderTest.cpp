#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/FileHelpers.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// Has NumPy write a file: the commands call it "path". @return the path
std::string byNumpy(TemporaryFolder const& folder, std::string const& name, std::string const& commands)
{
    std::string const script =
        folder.write("make.py", "import sys\nimport numpy as np\npath = sys.argv[1]\n" + commands);
    std::string const command = "'" VELDRAW_PYTHON "' -I '" + script + "' '" + folder.path(name) + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << commands;
    return folder.path(name);
}

double valueAt(kernel::DataSet const& data, std::string const& variable, std::int64_t at)
{
    return fieldOf(data, 1, variable).group()->buffer()->value(at);
}

// Three axes, so that each exchange of two of them would be seen.
char const* const wholeShape = "a = np.fromfunction(lambda k, j, i: 25 * k + 5 * j + i, (4, 3, 5))\n";

} // namespace

TEST(NumpyFile, HasTheLastAxisAsIInBothOrdersAndAllTypes)
{
    TemporaryFolder const folder;
    for (std::string const type : {"?",   "i1",  "u1",  "<i2", ">i2", "<u2", ">u2", "<i4", ">i4", "<u4", ">u4",
                                   "<i8", ">i8", "<u8", ">u8", "<f2", ">f2", "<f4", ">f4", "<f8", ">f8"}) {
        for (std::string const order : {"C", "F"}) {
            SCOPED_TRACE(type + order);
            auto const data = import(byNumpy(folder, "a.npy",
                                             wholeShape + ("np.save(path, np.asarray(a, dtype='" + type + "', order='" +
                                                           order + "'))\n")))
                                  .dataSet;
            ASSERT_EQ(data->zoneCount(), 1);
            EXPECT_EQ(variableNames(*data), "X,Y,Z,a");
            ASSERT_EQ(data->zone(1)->i, 5);
            ASSERT_EQ(data->zone(1)->j, 3);
            ASSERT_EQ(data->zone(1)->k, 4);
            for (int n = 0; n < 60; ++n) {
                int const value = 25 * (n / 15) + 5 * (n / 5 % 3) + n % 5;
                EXPECT_EQ(valueAt(*data, "a", n), type == "?" ? (value != 0 ? 1 : 0) : value) << n;
                EXPECT_EQ(valueAt(*data, "X", n), n % 5);
                EXPECT_EQ(valueAt(*data, "Z", n), n / 15);
            }
        }
    }
}

TEST(NumpyFile, HasAZoneForEachShape)
{
    TemporaryFolder const folder;
    for (char const* const how : {"savez", "savez_compressed"}) {
        auto const data = import(byNumpy(folder, "many.npz",
                                         std::string("np.") + how +
                                             "(path, p=np.arange(6.0).reshape(2, 3), t=np.float32([7, 8, 9, 10]),"
                                             " q=-np.arange(6).reshape(2, 3))\n"))
                              .dataSet;
        ASSERT_EQ(data->zoneCount(), 2);
        EXPECT_EQ(data->zone(1)->name, "many 1");
        EXPECT_EQ(variableNames(*data), "X,Y,Z,p,q,t");
        EXPECT_EQ(valuesOf(*data, 1, "p"), "0 1 2 3 4 5");
        EXPECT_EQ(valuesOf(*data, 1, "q"), "0 -1 -2 -3 -4 -5");
        EXPECT_EQ(valuesOf(*data, 1, "Y"), "0 0 0 1 1 1");
        EXPECT_EQ(valuesOf(*data, 1, "t"), "-");
        EXPECT_EQ(valuesOf(*data, 2, "t"), "7 8 9 10");
    }
}

TEST(NumpyFile, HasThePlacesThatItsArraysSay)
{
    TemporaryFolder const folder;
    auto const data =
        import(byNumpy(folder, "a.npz", "np.savez(path, x=np.array([1.5, 2.5]), p=np.array([3.0, 4.0]))\n")).dataSet;
    EXPECT_EQ(variableNames(*data), "x,p");
}

TEST(NumpyFile, KeepsHalfPrecisionToTheLastBit)
{
    TemporaryFolder const folder;
    auto const data = import(byNumpy(folder, "a.npz",
                                     "h = np.arange(65536, dtype='u2').view('f2')\n"
                                     "np.savez(path, h=h, f=h.astype('f4'))\n"))
                          .dataSet;
    for (int n = 0; n < 65536; ++n) {
        bool const isNumber = valueAt(*data, "f", n) == valueAt(*data, "f", n);
        ASSERT_EQ(valueAt(*data, "h", n) == valueAt(*data, "f", n), isNumber) << n;
    }
}

TEST(NumpyFile, SaysWhatIsNotRead)
{
    TemporaryFolder const folder;
    auto const result =
        import(byNumpy(folder, "a.npz",
                       "np.savez(path, p=np.ones(3), c=np.ones(3, 'c16'), s=np.array(['ab']), one=np.float64(1),"
                       " none=np.zeros((2, 0)), four=np.ones((1, 2, 1, 2)), parts=np.zeros(2, 'i4,f8'))\n"));
    EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Z,p");
    EXPECT_THAT(result.remarks,
                ElementsAre("left out: \"c\": it has values of the type \"<c16\"",
                            "left out: \"s\": it has values of the type \"<U2\"",
                            "left out: \"one\": it has 0 dimensions", "left out: \"none\": it has no values",
                            "left out: \"four\": it has 4 dimensions",
                            "left out: \"parts\": it has values of several parts"));
}

TEST(NumpyFile, ThatIsDamagedIsRefused)
{
    TemporaryFolder const folder;
    std::string const path = byNumpy(folder, "a.npy", "np.save(path, np.arange(100.0))\n");
    std::string const content = contentOf(path);
    EXPECT_THAT(problemWith(folder.write("a.npy", content.substr(0, content.size() - 1))),
                HasSubstr("it is incomplete: it has not as many values as its header says"));
    EXPECT_THAT(problemWith(folder.write("a.npy", "x" + content)), HasSubstr("no array of NumPy"));
    std::string packed = contentOf(byNumpy(folder, "a.npz", "np.savez(path, p=np.arange(100.0))\n"));
    packed[packed.size() / 2] ^= 1;
    EXPECT_THAT(problemWith(folder.write("a.npz", packed)), HasSubstr("its part \"p.npy\": it is damaged"));
}

TEST(NumpyFile, StandsAnyDamage)
{
    TemporaryFolder const folder;
    for (char const* const how : {"savez", "savez_compressed"}) {
        std::string const path =
            byNumpy(folder, "a.npz", std::string("np.") + how + "(path, p=np.arange(40.0), q=np.arange(6))\n");
        expectToStandDamage({"a.npz", contentOf(path), {}}, 200);
    }
    expectToStandDamage({"a.npy", contentOf(byNumpy(folder, "a.npy", "np.save(path, np.arange(40.0))\n")), {}}, 200);
}

} // namespace veldraw::tests
