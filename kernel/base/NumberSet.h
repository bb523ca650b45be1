#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

namespace veldraw::kernel {

/// An ordered set of one-based numbers of zones, variables or maps.
///
/// The numbers stand side by side, as there may be very many that are walked through again and again. Inserting a number above all others
/// takes no longer than for a vector; one below others moves these, so many numbers in no order are inserted as a range.
class NumberSet
{
public:
    using value_type = int;
    using const_iterator = std::vector<int>::const_iterator;
    using iterator = const_iterator; // the numbers cannot be changed in their place
    using const_reverse_iterator = std::vector<int>::const_reverse_iterator;

    NumberSet() = default;
    NumberSet(std::initializer_list<int> numbers)
        : NumberSet(numbers.begin(), numbers.end())
    {
    }
    template <typename Iterator>
    NumberSet(Iterator first, Iterator last)
    {
        insert(first, last);
    }

    const_iterator begin() const { return m_numbers.begin(); }
    const_iterator end() const { return m_numbers.end(); }
    const_reverse_iterator rbegin() const { return m_numbers.rbegin(); }
    const_reverse_iterator rend() const { return m_numbers.rend(); }
    bool empty() const { return m_numbers.empty(); }
    std::size_t size() const { return m_numbers.size(); }

    std::size_t count(int number) const { return std::binary_search(begin(), end(), number) ? 1 : 0; }

    void insert(int number)
    {
        if (empty() || m_numbers.back() < number) {
            m_numbers.push_back(number);
            return;
        }
        const_iterator const place = std::lower_bound(begin(), end(), number);
        if (*place != number) {
            m_numbers.insert(place, number);
        }
    }

    /// Numbers in any order, of which some may be members.
    template <typename Iterator>
    void insert(Iterator first, Iterator last)
    {
        auto const present = static_cast<std::ptrdiff_t>(size());
        m_numbers.insert(m_numbers.end(), first, last);
        auto const added = m_numbers.begin() + present;
        if (!std::is_sorted(added, m_numbers.end())) {
            std::sort(added, m_numbers.end());
        }
        std::inplace_merge(m_numbers.begin(), added, m_numbers.end());
        m_numbers.erase(std::unique(m_numbers.begin(), m_numbers.end()), m_numbers.end());
    }

    void erase(int number)
    {
        auto const [first, last] = std::equal_range(begin(), end(), number);
        m_numbers.erase(first, last);
    }

    void clear() { m_numbers.clear(); }

    friend bool operator==(NumberSet const& left, NumberSet const& right) { return left.m_numbers == right.m_numbers; }
    friend bool operator!=(NumberSet const& left, NumberSet const& right) { return !(left == right); }

    /// The numbers in ascending order.
    friend std::vector<int> const& toVector(NumberSet const& set) { return set.m_numbers; }

private:
    std::vector<int> m_numbers; // ascending, each once
};

} // namespace veldraw::kernel

/// The kernel's number set behind the C interface.
struct Set_s
{
    veldraw::kernel::NumberSet members;
};
