#pragma once

namespace tarvel {

class IconButton;

enum class RefreshSign { refresh, caution };

/// Puts the sign of refreshing, or of a refresh that failed, on a button that tells more of it. They differ
/// in shape and in what a screen reader says, not in colour alone.
void showRefreshSign(IconButton& button, RefreshSign sign);

}  // namespace tarvel
