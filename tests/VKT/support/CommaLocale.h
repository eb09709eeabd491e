#pragma once

#include <locale>

// A global locale of decimal commas and grouped digits while it lives: what a host
// process may have, and no file may show.
class CommaLocale {
public:
    CommaLocale() : m_Previous(std::locale::global(std::locale(std::locale::classic(), new Commas))) {}
    ~CommaLocale() { std::locale::global(m_Previous); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    struct Commas : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale m_Previous;
};
