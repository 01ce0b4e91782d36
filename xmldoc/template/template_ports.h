#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/clock.h"
#include "platform/component_calls.h"
#include "platform/random_source.h"
#include "xmldoc/mail/mail.h"

namespace tarvo {

/// What a template may reach outside of its document, and how much it may do. A directive that
/// needs a port which is not given produces an empty text. The caller owns the ports.
struct TemplatePorts {
  LocalClock* clock = nullptr;           ///< For the moment "now".
  RandomSource* random = nullptr;        ///< For "RANDOM(".
  ComponentCalls* components = nullptr;  ///< For "ext("; a call not done is an error.
  Mailer* mailer = nullptr;              ///< For "<sendmail ".

  /// Bytes that the output, and every single value on the way to it, may have.
  std::size_t mostOutput = std::size_t{256} << 20;
  /// Children that all blocks together may look at.
  std::uint64_t mostChilds = 200'000'000;
};

}  // namespace tarvo
