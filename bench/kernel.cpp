#include "bench/kernel.h"

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/measurement.h"
#include "base/file.h"
#include "image/image_buffer.h"

namespace pixora::bench {
namespace {

constexpr char kUsage[] =
    "usage: pixora_bench kernel stats|histogram|both --input FILE --offset N --width W --height H --repeat R "
    "[--mono]\n"
    "The samples are W x H x 3 little-endian words: blue, green, red; rows top to bottom.\n";

struct Request {
    std::string input;
    std::uint64_t offset = 0, width = 0, height = 0, repeat = 0;
    bool mono = false;
};

bool TakeNumber(std::string_view text, std::uint64_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool TakeOption(std::string_view name, const char* value, Request& request) {
    if (name == "--input") request.input = value;
    if (name == "--offset") return TakeNumber(value, request.offset);
    if (name == "--width") return TakeNumber(value, request.width);
    if (name == "--height") return TakeNumber(value, request.height);
    if (name == "--repeat") return TakeNumber(value, request.repeat);
    return name == "--input";
}

std::optional<Request> Parse(int count, const char* const* arguments) {
    if (count < 1) return std::nullopt;
    const std::string_view kernel = arguments[0];
    if (kernel != "stats" && kernel != "histogram" && kernel != "both") return std::nullopt;
    Request request;
    for (int i = 1; i < count; ++i) {
        if (std::string_view(arguments[i]) == "--mono")
            request.mono = true;
        else if (i + 1 == count || !TakeOption(arguments[i], arguments[i + 1], request))
            return std::nullopt;
        else
            ++i;
    }
    const auto side = [](std::uint64_t length) { return length >= 1 && length <= kMaxImageSide; };
    if (request.input.empty() || !side(request.width) || !side(request.height) || request.repeat == 0)
        return std::nullopt;
    return request;
}

bool Load(const Request& request, std::vector<std::uint16_t>& samples) {
    std::optional<File> file = File::OpenForReading(request.input);
    if (!file) return false;
    const std::uint64_t count = request.width * request.height * 3, bytes = count * sizeof(std::uint16_t);
    const std::uint64_t size = file->Size();
    if (request.offset > size || bytes > size - request.offset) return false;  // before the memory is taken
    samples.resize(static_cast<std::size_t>(count));
    return file->ReadExactly(request.offset, std::as_writable_bytes(std::span(samples)));
}

void PrintNumber(double value) {
    char text[64];
    const auto result = std::to_chars(text, text + sizeof text, value);
    std::fwrite(text, 1, static_cast<std::size_t>(result.ptr - text), stdout);
}

void Print(const std::vector<double>& seconds, const SampleStatistics& check) {
    const auto list = [](const std::vector<double>& numbers) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (i > 0) std::fputs(",", stdout);
            PrintNumber(numbers[i]);
        }
    };
    std::fputs("{\"seconds\":[", stdout);
    list(seconds);
    std::fputs("],\"check\":[", stdout);
    list({static_cast<double>(check.min), static_cast<double>(check.max), check.mean, check.std});
    std::fputs("]}\n", stdout);
}

int Measured(const Request& request) {
    std::vector<std::uint16_t> samples;
    if (!Load(request, samples)) {
        std::fprintf(stderr, "%s: the samples cannot be read\n", request.input.c_str());
        return 1;
    }
    const SampleImage image{static_cast<int>(request.width), static_cast<int>(request.height), !request.mono,
                            16, samples};
    // One pass counts, and the counts give the statistics, so the views ask for both at once.
    Measurement measurement;
    std::vector<double> seconds;
    for (std::uint64_t i = 0; i < request.repeat; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        Measure(image, WholeImage(image.width, image.height), measurement);
        seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    Print(seconds, measurement.statistics[0]);
    return 0;
}

}  // namespace

int RunKernel(int count, const char* const* arguments) {
    const std::optional<Request> request = Parse(count, arguments);
    if (!request) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    try {
        return Measured(*request);
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "%s: there is not enough memory\n", request->input.c_str());
        return 1;
    }
}

}  // namespace pixora::bench
