#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace tool {

// The text with everything made visible that could steer a terminal: control
// characters, marks that turn the direction of writing, and bytes that are no UTF-8
// come out as `\x1b`. Names from files are untrusted, and output is often read later in
// a terminal, so all text is cleaned, whatever it is written to. Line ends count as
// control characters.
std::string CleanText(std::string_view text);

// The text as it is, between double quotes.
std::string Quoted(std::string_view text);
// "[3]".
std::string Bracketed(std::size_t place);
// "1 point", "2 points".
std::string Counted(std::size_t count, std::string_view thing);
// What the system says, to stand behind a colon: "permission denied".
std::string ReasonOf(const std::error_code& error);
// Six digits: "0.25", "1e+20".
std::string ShortNumber(double number);

}  // namespace tool
