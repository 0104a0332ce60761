#include "auxwindows/RefreshPopoverViewController.h"

namespace tarvel {
namespace {

constexpr int kWidth = 248;

}  // namespace

RefreshPopoverViewController::RefreshPopoverViewController(const WindowContext& context)
    : StatusPopoverViewController(context, "RefreshPopoverViewController", kWidth) {}

}  // namespace tarvel
