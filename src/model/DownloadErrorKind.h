#pragma once
#include <cstdint>
#include <string_view>

namespace tarvel {

/// How the downloads of a refresh went. Persisted by raw value.
enum class DownloadErrorKind : std::int8_t { noError, connectionError, serverError, invalidData };

/// An unknown raw value reads as `noError`.
DownloadErrorKind downloadErrorKindOf(std::int64_t raw);
/// For the user: "Unable to contact server"; empty for `noError`.
std::string_view textOf(DownloadErrorKind kind);
/// For console lines: "connectionError".
std::string_view caseNameOf(DownloadErrorKind kind);

}  // namespace tarvel
