#pragma once

namespace tarvel {

/// What an alert's icon says of the message.
enum class AlertBadge { none, success, warning, error };

}  // namespace tarvel
