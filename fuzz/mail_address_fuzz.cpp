// Any text taken for a list of mail addresses, in a code page that its first byte picks: what comes
// out of it is fit for a command and for a header.
// corpus: mail_address
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "xmldoc/mail/mail_address_syntax.h"
#include "xmldoc/mail/mail_header.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  constexpr const char* kCharsets[] = {"windows-1252", "utf-8", "shift_jis", "gbk", "gb18030"};
  const std::string charset = kCharsets[data[0] % 5];
  const std::string_view list(reinterpret_cast<const char*>(data + 1), size - 1);
  std::string refused;
  const auto all = tarvo::ReadMailAddresses(list, tarvo::CharacterFormOf(charset), refused);
  if (!all) return 0;
  for (const tarvo::MailAddress& one : *all) {
    if (!tarvo::IsMailAddress(one.address)) std::abort();
    const std::string header = tarvo::AddressHeader("To", {one}, charset);
    // Whatever the name is, the address stands alone on the last line.
    if (!one.name.empty() && !header.ends_with("\r\n <" + one.address + ">\r\n")) std::abort();
    for (std::size_t at = header.find("\r\n"); at + 2 < header.size();
         at = header.find("\r\n", at + 2)) {
      if (header[at + 2] != ' ') std::abort();
    }
  }
  return 0;
}
