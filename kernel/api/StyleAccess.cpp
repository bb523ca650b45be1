#include "kernel/api/StyleAccess.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/api/ArgumentList.h"
#include "kernel/style/StyleTree.h"

#include <cstdint>

namespace veldraw::kernel::api {

namespace {

StylePath pathOf(ArgumentList const& arguments)
{
    StylePath path;
    for (int number = 1; number <= maxStyleNames; ++number) {
        std::optional<long long> const id = arguments.intValue(styleArgument::name + std::to_string(number));
        if (!id) {
            break;
        }
        path.push_back(session().style().nameOfId(*id));
    }
    return path;
}

// None if an argument is missing: an incomplete address could be that of another value.
std::optional<StyleAddress> addressOf(ArgumentList const& arguments)
{
    std::optional<long long> const frame = arguments.intValue(styleArgument::frame);
    std::optional<long long> const offset1 = arguments.intValue(styleArgument::offset1);
    std::optional<long long> const offset2 = arguments.intValue(styleArgument::offset2);
    if (!frame || !offset1 || !offset2) {
        return std::nullopt;
    }
    return StyleAddress{pathOf(arguments), *frame, *offset1, *offset2};
}

template <typename Number>
void storeAt(std::optional<long long> address, Number number)
{
    if (address) {
        store(reinterpret_cast<Number*>(static_cast<std::intptr_t>(*address)), number);
    }
}

} // namespace

int styleNameId(std::string const& name) noexcept
{
    return session().style().nameId(name);
}

bool isStylePath(ArgList_s const* list) noexcept
{
    return answerOr(false, [list] { return list != nullptr && session().style().hasPath(pathOf(list->arguments)); });
}

SetValueReturnCode_e setStyleValue(ArgList_s const* list) noexcept
{
    return answerOr(SetValueReturnCode_Refused, [list] {
        session().style().clearLastError();
        if (list == nullptr || list->arguments.intValue(styleArgument::assignOperator) != plainAssignment) {
            return SetValueReturnCode_Refused;
        }
        std::optional<StyleAddress> const address = addressOf(list->arguments);
        std::optional<long long> const whole = list->arguments.intValue(styleArgument::whole);
        std::optional<double> const real = list->arguments.doubleValue(styleArgument::real);
        if (!address || !whole || !real) {
            return SetValueReturnCode_Refused;
        }
        return session().style().set(*address, StyleNumber{*whole, *real});
    });
}

GetValueReturnCode_e getStyleValue(ArgList_s const* list) noexcept
{
    return answerOr(GetValueReturnCode_Unknown, [list] {
        std::optional<StyleAddress> const address = list == nullptr ? std::nullopt : addressOf(list->arguments);
        std::optional<StyleNumber> const number = address ? session().style().get(*address) : std::nullopt;
        if (!number) {
            return GetValueReturnCode_Unknown;
        }
        std::optional<long long> const whole = list->arguments.intValue(styleArgument::whole);
        std::optional<long long> const real = list->arguments.intValue(styleArgument::real);
        storeAt(whole, number->whole);
        storeAt(real, number->real);
        // Who gave no place for the value has not got it.
        return whole || real ? GetValueReturnCode_Ok : GetValueReturnCode_Unknown;
    });
}

} // namespace veldraw::kernel::api
