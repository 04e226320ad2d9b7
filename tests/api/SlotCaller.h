#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

/// What reached an object: a line "Name(arguments) = result" for each call.
class CallLog {
public:
    template <class... Arguments>
    void Enter(const char* name, const Arguments&... arguments) {
        std::ostringstream text;
        [[maybe_unused]] const char* separator = "";
        text << std::boolalpha << name << '(';
        ((text << separator << arguments, separator = ", "), ...);
        text << ')';
        lines_.push_back(text.str());
    }

    template <class Result>
    void Leave(const Result& result) {
        std::ostringstream text;
        text << std::boolalpha << " = " << result;
        lines_.back() += text.str();
    }

    const std::vector<std::string>& lines() const { return lines_; }

private:
    std::vector<std::string> lines_;
};

/// Calls the virtual functions of an object one after the other, by nothing but their places in its table: as code
/// does that was compiled long ago, or by another compiler.
class SlotCaller {
public:
    SlotCaller(void* object, CallLog& log) : object_(object), log_(log) {
        std::memcpy(&table_, object, sizeof(table_));
    }

    /// Calls the function of the next slot. A reference is passed as the pointer that it is.
    template <class Result, class... Arguments>
    void Next(Arguments... arguments) {
        Result (*function)(void*, Arguments...) = nullptr;
        std::memcpy(&function, table_ + slot_++, sizeof(function));
        if constexpr (std::is_void_v<Result>) {
            function(object_, arguments...);
        } else {
            const Result result = function(object_, arguments...);
            // A byte is a number here, not a character.
            if constexpr (std::is_same_v<Result, std::uint8_t>) {
                log_.Leave(unsigned{result});
            } else {
                log_.Leave(result);
            }
        }
    }

private:
    // The destructor comes first: Visual C++ gives it one slot, all others two, of which one frees the memory too.
#if defined(_MSC_VER)
    static constexpr std::size_t kDestructorSlots = 1;
#else
    static constexpr std::size_t kDestructorSlots = 2;
#endif

    void* object_;
    CallLog& log_;
    void* const* table_ = nullptr;
    std::size_t slot_ = kDestructorSlots;
};
