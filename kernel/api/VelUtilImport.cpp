#include "platform/vdsdkbase/VelUtilImport.h"

#include "kernel/api/ApiSupport.h"

using namespace veldraw::kernel;

bool VelUtilImportGetLoaderInstrByNum(int number, char** loaderName, StringList_s** instructions)
{
    api::store<char*>(loaderName, nullptr);
    api::store<StringList_s*>(instructions, nullptr);
    std::shared_ptr<DataSet> const dataSet = api::session().activeDataSet();
    if (!dataSet || number < 1 || number > static_cast<int>(dataSet->loaderInstructions().size())) {
        return false;
    }
    return api::answerOr(false, [&] {
        LoaderInstructions const& loader = dataSet->loaderInstructions()[static_cast<std::size_t>(number - 1)];
        auto words = std::make_unique<StringList_s>(StringList_s{loader.words});
        if (loaderName != nullptr) {
            *loaderName = api::copyText(loader.loaderName);
        }
        if (instructions != nullptr) {
            *instructions = words.release();
        }
        return true;
    });
}

int VelUtilImportGetLoaderInstrCount(void)
{
    std::shared_ptr<DataSet> const dataSet = api::session().activeDataSet();
    return dataSet ? static_cast<int>(dataSet->loaderInstructions().size()) : 0;
}
