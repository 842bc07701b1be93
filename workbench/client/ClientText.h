// Lines as a client writes them to the workbench, and answers as it reads them.
#pragma once

#include <array>
#include <locale>
#include <sstream>
#include <string>

#include "core/ground/Arithmetic.h"

namespace workbench {

// A command: its name and numbers.
class Request {
public:
    explicit Request(const std::string& name) {
        text_.imbue(std::locale::classic());
        text_.precision(17);
        text_ << name;
    }

    template <typename Number>
    Request& With(const Number& number) {
        text_ << ' ' << number;
        return *this;
    }

    template <typename Number, std::size_t Count>
    Request& With(const std::array<Number, Count>& numbers) {
        for (const Number& number : numbers) {
            With(number);
        }
        return *this;
    }

    std::string Line() const { return text_.str(); }

private:
    std::ostringstream text_;
};

// The numbers of an answer, in their order. travo::NumberFailure where one is missing.
class AnswerReader {
public:
    explicit AnswerReader(const std::string& text) : words_(text) { words_.imbue(std::locale::classic()); }

    template <typename Number>
    Number Next() {
        Number number{};
        if (!(words_ >> number)) {
            throw travo::NumberFailure("the workbench answered with too few numbers");
        }
        return number;
    }

    bool NextFlag() { return Next<int>() != 0; }

    template <std::size_t Count>
    std::array<double, Count> NextPlace() {
        std::array<double, Count> place{};
        for (double& coordinate : place) {
            coordinate = Next<double>();
        }
        return place;
    }

    bool AtEnd() { return (words_ >> std::ws).eof(); }

private:
    std::istringstream words_;
};

}  // namespace workbench
