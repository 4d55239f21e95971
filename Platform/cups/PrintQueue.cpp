// The queues of CUPS, on the host that its own settings name.
#include "Platform/PrintQueue.h"

#include <cups/cups.h>
#include <memory>

namespace platform {

namespace {

struct DestinationDeleter {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using Destination = std::unique_ptr<cups_dest_t, DestinationDeleter>;

struct InfoDeleter {
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
using DestinationInfo = std::unique_ptr<cups_dinfo_t, InfoDeleter>;

Destination Find(std::string const& name) {
    return Destination(cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.empty() ? nullptr : name.c_str(), nullptr));
}

std::string_view OptionOf(cups_dest_t const& destination, char const* option) {
    char const* const value = cupsGetOption(option, destination.num_options, destination.options);
    return value == nullptr ? std::string_view() : value;
}

/// The options of a job.
class Options {
  public:
    Options() = default;
    Options(Options const&) = delete;
    Options& operator=(Options const&) = delete;
    ~Options() { cupsFreeOptions(count_, options_); }

    void Add(char const* name, char const* value) { count_ = cupsAddOption(name, value, count_, &options_); }
    [[nodiscard]] int Count() const noexcept { return count_; }
    [[nodiscard]] cups_option_t* Get() const noexcept { return options_; }

  private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

bool Send(char const* queue, int job, std::string const& title, std::string_view pdf) {
    if (cupsStartDocument(CUPS_HTTP_DEFAULT, queue, job, title.c_str(), CUPS_FORMAT_PDF, 1) !=
        HTTP_STATUS_CONTINUE)
        return false;
    bool const isSent =
        cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.data(), pdf.size()) == HTTP_STATUS_CONTINUE;
    return cupsFinishDocument(CUPS_HTTP_DEFAULT, queue) == IPP_STATUS_OK && isSent;
}

}  // namespace

std::optional<PrintQueue> FindPrintQueue(std::string const& name) {
    Destination const destination = Find(name);
    if (destination == nullptr) return std::nullopt;
    // A queue that does not state this is asked when the job is submitted.
    bool const accepts = OptionOf(*destination, "printer-is-accepting-jobs") != "false";
    auto const type = OptionOf(*destination, "printer-type");
    unsigned long const bits = type.empty() ? 0 : std::stoul(std::string(type));
    return PrintQueue{destination->name, accepts, (bits & CUPS_PRINTER_COLOR) != 0};
}

PrintMargins MarginsOf(std::string const& queue, PrintMedia const& media) {
    Destination const destination = Find(queue);
    if (destination == nullptr) return {};
    DestinationInfo const info(cupsCopyDestInfo(CUPS_HTTP_DEFAULT, destination.get()));
    cups_size_t size{};
    if (info == nullptr ||
        cupsGetDestMediaBySize(CUPS_HTTP_DEFAULT, destination.get(), info.get(), media.width, media.height,
                               CUPS_MEDIA_FLAGS_DEFAULT, &size) == 0)
        return {};
    return {size.left, size.top, size.right, size.bottom};
}

bool SubmitPdf(std::string const& queue, PrintRequest const& request, std::string_view pdf) {
    Destination const destination = Find(queue);
    if (destination == nullptr) return false;
    Options options;
    for (int i = 0; i < destination->num_options; ++i)
        options.Add(destination->options[i].name, destination->options[i].value);
    pwg_media_t const* const media = pwgMediaForSize(request.media.width, request.media.height);
    if (media != nullptr) options.Add("media", media->pwg);
    if (request.isLandscape) options.Add("orientation-requested", "4");

    char const* const name = destination->name;
    int const job =
        cupsCreateJob(CUPS_HTTP_DEFAULT, name, request.title.c_str(), options.Count(), options.Get());
    if (job == 0) return false;
    if (Send(name, job, request.title, pdf)) return true;
    static_cast<void>(cupsCancelJob2(CUPS_HTTP_DEFAULT, name, job, 1));
    return false;
}

}  // namespace platform
