// Results as lines of text, CSV or JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pixora::cli {

/// The shortest decimal that reads back to the same number.
[[nodiscard]] std::string ShortestText(double value);

/// A field of a CSV line: in quotes when it holds a comma, a quote or a line end.
[[nodiscard]] std::string CsvField(std::string_view text);

/// A named value of a result.
struct Field {
    std::string_view name;
    std::string value;
    bool quoted = false;  ///< a text in JSON; otherwise a number or a truth value
};

[[nodiscard]] inline Field TextField(std::string_view name, std::string_view value) {
    return {name, std::string(value), true};
}
[[nodiscard]] inline Field NumberField(std::string_view name, std::int64_t value) {
    return {name, std::to_string(value)};
}
[[nodiscard]] inline Field TruthField(std::string_view name, bool value) {
    return {name, value ? "true" : "false"};
}

/// A JSON object without blanks and line ends, its fields in the given order.
[[nodiscard]] std::string JsonObject(const std::vector<Field>& fields);
/// A line of the names, and one of the values; each with its line end.
[[nodiscard]] std::string CsvHeader(const std::vector<Field>& fields);
[[nodiscard]] std::string CsvLine(const std::vector<Field>& fields);

}  // namespace pixora::cli
