// Any text as a conf file: the start reads it or ends with its own error, the check-up says the
// same beforehand, and a repair of its line ends changes nothing else.
// corpus: conf
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "checkup/conf_checks.h"
#include "checkup/endpoint_checks.h"
#include "core/server_configuration.h"
#include "fuzz/randomizer_rig.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace {

/// A root whose two conf files hold the same text.
class ConfRoot final : public tarvo::FileReader, public tarvo::FileDiagnosis {
 public:
  explicit ConfRoot(const std::string& text) : text_(text) {}

  bool Exists(const std::string&) override { return true; }
  tarvo::ReadResult ReadText(const std::string&, std::string& text) override {
    text = text_;
    return tarvo::ReadResult::Ok;
  }
  std::optional<tarvo::FileFault> WhyUnreadable(const std::string&) override {
    return std::nullopt;
  }

 private:
  const std::string& text_;
};

/// What a start makes of it; nothing when it ends with an error.
std::optional<tarvo::ServerEndpoints> Started(const std::string& text, tarvo::CodePage& codePage) {
  ConfRoot files(text);
  const tarvo::ServerRoot root("C:\\srv\\tarvo-launcher.exe", codePage);
  try {
    return tarvo::ReadServerConfiguration(files, files, root).configuration.endpoints;
  } catch (const tarvo::RuntimeError&) {
    return std::nullopt;
  }
}

tarvo::PerComponent<tarvo::EndpointFacts> Checked(const std::string& text) {
  tarvo::PerComponent<tarvo::EndpointFacts> endpoints;
  for (const char* file : tarvo::kConfigurationFiles) {
    const tarvo::ConfText conf{file, text};
    tarvo::CheckLineEnds(conf);
    tarvo::CheckMissedKeys(conf);
    tarvo::TakeEndpoints(tarvo::ValuesOf(conf), true, endpoints);
  }
  tarvo::CheckPorts(endpoints);
  return endpoints;
}

std::string WithoutReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  static RandomizerRig rig;
  const auto started = Started(text, rig);
  const auto checked = Checked(text);
  const bool readable = std::all_of(checked.begin(), checked.end(),
                                    [](const auto& endpoint) { return endpoint.port.has_value(); });
  if (readable != started.has_value()) std::abort();
  for (tarvo::ComponentKind kind : tarvo::kComponents) {
    if (started && (*started)[kind].port != *checked[kind].port) std::abort();
  }
  const std::string whole = tarvo::WithWholeLineEnds(text);
  if (tarvo::LineEndsOf(whole).bare != 0) std::abort();
  if (WithoutReturns(whole) != WithoutReturns(text)) std::abort();
  return 0;
}
