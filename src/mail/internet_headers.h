// SPDX-License-Identifier: MIT
// Headers as pairs of name and value, in the order in which they were first set. ASCII letters of a name count the
// same in either case. They are kept by a key: the name, and for each further header of that name the name, ":" and a
// running number from 1.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessit {

class InternetHeaders {
public:
    virtual ~InternetHeaders() = default;

    int Count() const { return static_cast<int>(entries_.size()); }
    std::string Name(int index) const; // from 0; Fault out_of_bounds
    std::string Value(int index) const;
    int NameCount(std::string_view name) const;                     // how many headers have the name
    std::string Value(std::string_view name, int number = 0) const; // the first has number 0; empty where none is
    bool has(std::string_view name) const { return NameCount(name) > 0; }
    std::string CommaSeparatedValues(std::string_view name) const; // all values of the name, joined by ", "

    void AppendHeader(std::string_view name, std::string_view value); // beside those of the same name
    void SetHeader(std::string_view name, std::string_view value);    // in place of those of the same name
    void Delete(std::string_view name);                               // all of the name
    void DeleteAllHeaders() { entries_.clear(); }

    virtual std::string Source() const; // one line each, CR LF between them

private:
    std::string key_of(std::string_view name, int number) const;

    std::vector<std::pair<std::string, std::string>> entries_; // key and value
};

} // namespace tessit
