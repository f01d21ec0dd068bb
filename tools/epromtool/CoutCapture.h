// Catches what is written to std::cout while it lives: the line-form readers of the library
// report their complaints there, and the tool reports them in its own words.
#pragma once

#include <iostream>
#include <sstream>
#include <string>

namespace epromtool {

class CoutCapture {
public:
    CoutCapture() : previous(std::cout.rdbuf(caught.rdbuf())) {}
    ~CoutCapture() { std::cout.rdbuf(previous); }
    CoutCapture(const CoutCapture&) = delete;
    CoutCapture& operator=(const CoutCapture&) = delete;

    std::string text() const { return caught.str(); }

private:
    std::ostringstream caught;
    std::streambuf* previous;
};

} // namespace epromtool
