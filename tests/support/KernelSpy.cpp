#include "tests/support/KernelSpy.h"

#include "kernel/base/NumberSet.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <map>
#include <sstream>
#include <utility>

namespace veldraw::tests {

namespace {

struct Call
{
    std::string function;
    std::string text;
};

struct Record
{
    bool active = false;
    std::vector<Call> calls;
    std::map<std::string, std::vector<int>> failures; // calls still to go, a function
    int failCall = 0;                                 // calls of any function still to go, 0 = off
    bool failAllFromThere = false;
    std::function<void(std::string const& function)> listener;
};

Record& record()
{
    static Record instance;
    return instance;
}

template <typename T>
std::string toText(T const& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

template <typename Range>
std::string join(Range const& range)
{
    std::ostringstream stream;
    char const* separator = "";
    for (auto const& item : range) {
        stream << separator << item;
        separator = ", ";
    }
    return stream.str();
}

bool isDueForFunction(std::string const& function)
{
    auto const found = record().failures.find(function);
    if (found == record().failures.end())
        return false;
    std::vector<int>& pending = found->second;
    for (int& callsToGo : pending)
        --callsToGo;
    auto const due = std::find(pending.begin(), pending.end(), 0);
    if (due == pending.end())
        return false;
    pending.erase(due);
    return true;
}

bool isDueForAnyFunction()
{
    Record& r = record();
    if (r.failCall == 0)
        return false;
    if (r.failCall > 1) {
        --r.failCall;
        return false;
    }
    if (!r.failAllFromThere)
        r.failCall = 0;
    return true;
}

} // namespace

KernelSpy::KernelSpy()
{
    assert(!record().active);
    record() = Record();
    record().active = true;
}

KernelSpy::~KernelSpy()
{
    record() = Record();
}

std::vector<std::string> KernelSpy::calls() const
{
    std::vector<std::string> texts;
    for (Call const& call : record().calls)
        texts.push_back(call.text);
    return texts;
}

std::vector<std::string> KernelSpy::callsOf(std::string const& function) const
{
    std::vector<std::string> texts;
    for (Call const& call : record().calls)
        if (call.function == function)
            texts.push_back(call.text);
    return texts;
}

int KernelSpy::count(std::string const& function) const
{
    return static_cast<int>(callsOf(function).size());
}

int KernelSpy::count() const
{
    return static_cast<int>(record().calls.size());
}

void KernelSpy::failNext(std::string const& function, int n)
{
    assert(n > 0);
    record().failures[function].push_back(n);
}

void KernelSpy::failCall(int n)
{
    record().failCall = n;
    record().failAllFromThere = false;
}

void KernelSpy::failFrom(int n)
{
    record().failCall = n;
    record().failAllFromThere = true;
}

void KernelSpy::onCall(std::function<void(std::string const& function)> listener)
{
    record().listener = std::move(listener);
}

void KernelSpy::reset()
{
    record() = Record();
    record().active = true;
}

bool KernelSpy::isWatching()
{
    return record().active;
}

bool KernelSpy::noteCall(char const* function, std::vector<std::string> const& arguments)
{
    record().calls.push_back({function, std::string(function) + "(" + join(arguments) + ")"});
    if (auto const listener = record().listener)
        listener(function);
    bool const functionIsDue = isDueForFunction(function);
    return isDueForAnyFunction() || functionIsDue;
}

void* KernelSpy::realFunction(char const* function)
{
    void* const address = dlsym(RTLD_NEXT, function);
    if (!address) {
        std::fprintf(stderr, "KernelSpy: nothing behind the spy defines %s\n", function);
        std::abort();
    }
    return address;
}

std::string KernelSpy::describe(bool value)
{
    return value ? "true" : "false";
}

std::string KernelSpy::describe(char value)
{
    return std::string("'") + value + "'";
}

std::string KernelSpy::describe(int value)
{
    return toText(value);
}

std::string KernelSpy::describe(long long value)
{
    return toText(value);
}

std::string KernelSpy::describe(double value)
{
    return toText(value);
}

std::string KernelSpy::describe(char const* text)
{
    return text ? "\"" + std::string(text) + "\"" : "null";
}

std::string KernelSpy::describe(Set_s const* set)
{
    return set ? "{" + join(set->members) + "}" : "null";
}

std::string KernelSpy::describe(ArgList_s const* list)
{
    return list ? "list" : "null";
}

std::string KernelSpy::describe(int const* values, int count)
{
    return values ? "(" + join(std::vector<int>(values, values + count)) + ")" : "null";
}

std::string KernelSpy::describe(double const* values, int count)
{
    return values ? "(" + join(std::vector<double>(values, values + count)) + ")" : "null";
}

} // namespace veldraw::tests
