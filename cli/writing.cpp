// The commands that make a file from an image.
#include <functional>

#include "analysis/csv.h"
#include "analysis/line_profile.h"
#include "base/file.h"
#include "base/stop.h"
#include "cli/commands.h"
#include "cli/paths.h"
#include "cli/region_sink.h"
#include "image/read_result.h"
#include "image/region_save.h"
#include "viewer/region_file.h"

namespace pixora::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCannotWrite = "the file cannot be written";

// Why a file cannot be made there, as far as that can be told.
std::string_view WriteFault(const std::string& name) {
    std::error_code ignored;
    const fs::path path = PathOf(name);
    if (fs::is_directory(path, ignored)) return "a folder has this name";
    const fs::path folder = path.parent_path();
    if (!folder.empty() && !fs::exists(folder, ignored)) return "the folder does not exist";
    return kCannotWrite;
}

int CannotWrite(const Session& session, const std::string& name) {
    session.Say(name, WriteFault(name));
    return kFailed;
}

// An image is never replaced by something made from it.
bool WouldReplace(const Session& session, const std::string& file, const std::string& out) {
    if (out.empty() || !SameFile(file, out)) return false;
    session.Say(out, "this is the image itself");
    return true;
}

int WriteCsvFile(const Session& session, const std::function<bool(File&)>& fill) {
    const std::string& out = session.options.out;
    return WriteWholeFile(PathOf(out), fill) ? kDone : CannotWrite(session, out);
}

int ChannelFor(const Session& session, const ImageBuffer& image) {
    return image.colour ? session.options.channel : int{kGrey};
}

// Colour samples are saved as they were read; of a grey image one of three is.
bool SaveSamples(const SampleBuffer& part, bool colour, std::uint32_t bits, const fs::path& path) {
    const auto width = static_cast<std::uint32_t>(part.width),
               height = static_cast<std::uint32_t>(part.height);
    if (colour) return SaveRegion({width, height, colour, bits, part.samples.All()}, path);
    return SaveRegion(CutOutRegion(part, colour, bits, WholeImage(part.width, part.height)).Pixels(), path);
}

}  // namespace

int Histogram(Session& session, const std::string& file) {
    if (WouldReplace(session, file, session.options.out)) return kUsage;
    CountSink sink;
    sink.Expect(session.options.region);
    int status = kDone;
    const std::optional<ImageBuffer> image = session.Read(file, &sink, status);
    if (!image) return status;
    const bool colour = image->colour != 0;
    const std::uint32_t bits = EffectiveBits(*image);
    return WriteCsvFile(session, [&](File& out) {
        return WriteHistogramCsv(out, sink.Counts(colour, bits), colour, ChannelFor(session, *image), bits);
    });
}

int Profile(Session& session, const std::string& file) {
    const Options& options = session.options;
    if (WouldReplace(session, file, options.out)) return kUsage;
    const bool row = options.kind == ProfileKind::horizontal;
    RegionSink sink;
    sink.ExpectLine(row, options.line, options.region);
    int status = kDone;
    const std::optional<ImageBuffer> image = session.Read(file, &sink, status);
    if (!image) return status;
    const SampleBuffer& line = sink.Samples();
    const SampleImage samples{line.width, line.height, image->colour != 0, EffectiveBits(*image),
                              line.samples.All()};
    LineProfile profile;
    ReadLine(samples, options.kind, 0, WholeImage(samples.width, samples.height), profile);
    profile.first += row ? sink.Part().left : sink.Part().top;
    return WriteCsvFile(session, [&](File& out) {
        return WriteProfileCsv(out, profile, samples.colour, ChannelFor(session, *image));
    });
}

int SavePart(Session& session, const std::string& file) {
    const std::string& out = session.options.out;
    if (WouldReplace(session, file, out)) return kUsage;
    RegionSink sink;
    sink.Expect(session.options.region);
    int status = kDone;
    const std::optional<ImageBuffer> image = session.Read(file, &sink, status);
    if (!image) return status;
    const bool colour = image->colour != 0;
    const std::uint32_t bits = EffectiveBits(*image);
    if (SaveSamples(sink.Samples(), colour, bits, PathOf(out))) return kDone;
    if (!colour && bits > 12 && !ChoosesTiff(WideText(PathOf(out)))) {
        session.Say(out, "a grey image of 14 or 16 bits can be saved as TIFF only");
        return kFailed;
    }
    return CannotWrite(session, out);
}

int Convert(Session& session, const std::string& file) {
    const Options& options = session.options;
    if (WouldReplace(session, file, options.out) || WouldReplace(session, file, options.data)) return kUsage;
    if (!options.data.empty() && SameFile(options.out, options.data)) {
        session.Say(options.out, "both copies would have this name");
        return kUsage;
    }
    std::optional<PendingFile> display = PendingFile::For(PathOf(options.out)), data;
    if (!display) return CannotWrite(session, options.out);
    if (!options.data.empty() && !(data = PendingFile::For(PathOf(options.data))))
        return CannotWrite(session, options.data);
    const ImportResult result =
        CopyImage(session.RequestFor(file), display->Name(), data ? data->Name() : fs::path());
    if (StopRequested()) return kFailed;  // what has been copied may lack its end; the old files stay
    if (!result.image) {
        if (result.code != static_cast<int>(ReadResult::write_failed)) return session.Refuse(file, result);
        session.Say(result.data_copy_failed ? options.data : options.out, kCannotWrite);
        return kFailed;
    }
    if (data && !result.image->raw_data) {
        session.Say(file, "only 16-bit TIFF files have a data copy");
        return kUsage;
    }
    session.Warn(file, result);
    if (data && !data->Commit()) return CannotWrite(session, options.data);
    return display->Commit() ? kDone : CannotWrite(session, options.out);
}

}  // namespace pixora::cli
