#include "cli/json.h"

#include "base/utf8.h"

namespace pixora::cli {

void JsonWriter::Text(std::string_view text) {
    const std::string valid = Utf8FromWide(WideFromUtf8(text));
    writer_.String(valid.data(), Size(valid));
}

void JsonWriter::Add(const Field& field) {
    Name(field.name);
    if (field.quoted)
        Text(field.value);
    else
        writer_.RawValue(field.value.data(), field.value.size(), rapidjson::kNumberType);
}

}  // namespace pixora::cli
