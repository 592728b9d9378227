#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#ifdef _WIN32
// Windows programs here start with wide arguments; doctest reads narrow ones, and all of its own are ASCII.
#include <string>
#include <vector>

int wmain(int count, wchar_t** arguments) {
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
        std::string text;
        for (const wchar_t* c = arguments[i]; *c; ++c) text.push_back(*c < 128 ? static_cast<char>(*c) : '?');
        texts.push_back(text);
    }
    std::vector<const char*> pointers;
    for (const std::string& text : texts) pointers.push_back(text.c_str());
    return doctest::Context(count, pointers.data()).run();
}
#else
int main(int count, char** arguments) {
    return doctest::Context(count, arguments).run();
}
#endif
