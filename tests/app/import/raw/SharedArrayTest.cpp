#include "app/import/raw/SharedArray.h"

#include "app/vtk/ArrayAdoption.h"

#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkWeakPointer.h>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// Two components, 0 2 4 and 1 3 5, side by side in one array of VTK's.
class Source
{
public:
    app::SharedArray::Components operator()()
    {
        ++loads;
        vtkNew<vtkDoubleArray> array;
        array->SetNumberOfComponents(2);
        array->SetNumberOfTuples(3);
        for (vtkIdType n = 0; n < 6; ++n)
            array->SetValue(n, static_cast<double>(n));
        last = array;
        return app::adoptArray(*array).components;
    }

    int loads = 0;
    vtkWeakPointer<vtkDataArray> last;
};

} // namespace

TEST(SharedArray, GivesAllComponentsFromOneLoad)
{
    app::SharedArray whole;
    Source source;
    auto const y = whole.take(1, std::ref(source));
    auto const x = whole.take(0, std::ref(source));
    EXPECT_EQ(source.loads, 1);
    EXPECT_EQ(x->owner(), y->owner());
    EXPECT_EQ(x->value(2), 4.0);
    EXPECT_EQ(y->value(2), 5.0);
}

TEST(SharedArray, HoldsNoMemoryItself)
{
    app::SharedArray whole;
    Source source;
    auto x = whole.take(0, std::ref(source));
    EXPECT_NE(source.last, nullptr);
    x.reset();
    EXPECT_EQ(source.last, nullptr);
    EXPECT_EQ(whole.take(1, std::ref(source))->value(0), 1.0);
    EXPECT_EQ(source.loads, 2);
}

TEST(SharedArray, NeverGivesAComponentThatMayHaveBeenAltered)
{
    app::SharedArray whole;
    Source source;
    auto const y = whole.take(1, std::ref(source));
    auto x = whole.take(0, std::ref(source));
    x->setValue(0, 77.0);
    x.reset();
    EXPECT_EQ(whole.take(0, std::ref(source))->value(0), 0.0);
    EXPECT_EQ(source.loads, 2);
}

} // namespace veldraw::tests
