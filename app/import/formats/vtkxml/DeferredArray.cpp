#include "app/import/formats/vtkxml/DeferredArray.h"

#include "app/files/ImportError.h"

namespace veldraw::app {

namespace {

// Brings the values of another loader in the order that the zone wants them.
class ArrangedLoader : public kernel::ValueLoader
{
public:
    ArrangedLoader(std::shared_ptr<kernel::ValueLoader> source, DeferredArray::Arrangement arrange)
        : m_source(std::move(source))
        , m_arrange(std::move(arrange))
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override
    {
        auto const values = m_source->load(progress);
        auto arranged = m_arrange(*values);
        if (std::string const loss = m_source->whatIsLost(); !loss.empty())
            throw ImportError(loss);
        return arranged;
    }

    kernel::ValueRange range() const override { return m_source->range(); }
    bool canLoad() const override { return m_source->canLoad(); }

private:
    std::shared_ptr<kernel::ValueLoader> m_source;
    DeferredArray::Arrangement m_arrange;
};

} // namespace

std::shared_ptr<kernel::ShareGroup> DeferredArray::group(int component, std::int64_t tuples, std::int64_t size,
                                                         Arrangement const& arrange, kernel::Progress& progress) const
{
    std::shared_ptr<kernel::ValueLoader> loader = makeLoader(component, tuples);
    if (arrange)
        loader = std::make_shared<ArrangedLoader>(loader, arrange);
    auto group = std::make_shared<kernel::ShareGroup>(kernelTypeOf(type), size, loader);
    if (isLoadedAtOnce)
        group->setLoaded(loader->load(progress));
    return group;
}

} // namespace veldraw::app
