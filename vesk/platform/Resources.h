/// \file
/// The library's string resources: the table built from vesk/Strings.rc (on
/// hosts without resource sections) and the lookup behind LoadResourceString.
#ifndef VESK_PLATFORM_RESOURCES_H
#define VESK_PLATFORM_RESOURCES_H

namespace vesk {
namespace platform {

/// One entry of the string table.
struct ResourceString {
  unsigned int id;
  const char* text;
};

/// The table, generated from the resource script.
extern const ResourceString kResourceStrings[];
extern const unsigned int kResourceStringCount;

/// The text of a resource string (UTF-8); null when the id has none.
const char* FindResourceString(unsigned int id) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
