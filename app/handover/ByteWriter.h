#pragma once

#include "app/handover/Nonsense.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace veldraw::app {

/// Puts numbers and texts one after the other, as ByteReader takes them. Both run on one machine, so that bytes have its order.
class ByteWriter
{
public:
    template <typename Number>
    void number(Number value)
    {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        m_bytes.append(bytes, sizeof value);
    }

    void flag(bool value) { number(static_cast<std::uint8_t>(value ? 1 : 0)); }
    void text(std::string_view value);
    void texts(std::vector<std::string> const& values);

    std::string const& bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

/// Takes numbers and texts from bytes that somebody else wrote; it never looks beyond their end.
class ByteReader
{
public:
    /// @param bytes outlive this
    explicit ByteReader(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    /// @throws Nonsense where there is not as much, as all of these do
    template <typename Number>
    Number number()
    {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        Number value;
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }

    bool flag();

    /// A text of any bytes. @param longest in bytes
    std::string text(std::size_t longest);

    /// A text that can be shown: UTF-8 without a zero byte.
    std::string name(std::size_t longest);
    std::vector<std::string> names(std::size_t longest);

    /// A number of things that follow. @param bytesOfEach at least as many are taken up by each
    std::size_t count(std::size_t bytesOfEach);

    /// One of the enumerators up to @p last.
    template <typename Enumeration>
    Enumeration enumerator(Enumeration last)
    {
        auto const value = number<std::uint8_t>();
        if (value > static_cast<std::uint8_t>(last))
            throw Nonsense("an enumerator that there is not");
        return static_cast<Enumeration>(value);
    }

    /// @throws Nonsense when something is left
    void expectEnd() const;

private:
    std::string_view take(std::size_t size);

    std::string_view m_bytes;
};

} // namespace veldraw::app
