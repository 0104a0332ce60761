#include "mainwindow/NoticeBanner.h"

#include <algorithm>

namespace tarvel {
namespace {

constexpr int kDismissTop = 6;
constexpr int kDismissRight = 10;  // above the arrow to the next notice

}  // namespace

bool bannerWanted(RinkData* rinkData) {
  if (!rinkData) return false;
  const std::optional<NoticeList>& notices = rinkData->noticeList();
  return notices && std::any_of(notices->begin(), notices->end(),
                                [&](const auto& notice) { return !rinkData->isDismissed(notice->noticeID); });
}

NoticeBanner::NoticeBanner(const WindowContext& context, QWidget* parent) : QWidget(parent) {
  setFixedHeight(kHeight);
  noticeBannerView_ = new NoticeBannerView(context, this);
  dismissBannerButton_ = new BannerButton("close", QStringLiteral("Dismiss Notice"), this);
  connect(dismissBannerButton_, &BannerButton::clicked, this, &NoticeBanner::hideNoticeBanner);
  hideNoticeBanner();
}

void NoticeBanner::close() {
  noticeBannerView_->closeBanner();
  noticeBannerView_->noticeChosen = {};
  noticeBannerView_->close();
}

void NoticeBanner::applyRule(const std::shared_ptr<RinkData>& rinkData) {
  if (bannerWanted(rinkData.get())) {
    showNoticeBanner(rinkData);
  } else {
    hideNoticeBanner();
  }
}

void NoticeBanner::showNoticeBanner(const std::shared_ptr<RinkData>& rinkData) {
  if (!bannerVisible_ || !noticeBannerView_->rinkData()) noticeBannerView_->setRinkData(rinkData);
  if (!bannerVisible_) {
    bannerVisible_ = true;
    noticeBannerView_->setPresented(true);
    setVisible(true);
  }
  noticeBannerView_->showFirstNotice();
}

void NoticeBanner::hideNoticeBanner() {
  if (bannerVisible_) {
    bannerVisible_ = false;
    noticeBannerView_->setPresented(false);
    setVisible(false);
  }
  noticeBannerView_->closeBanner();
}

void NoticeBanner::resizeEvent(QResizeEvent*) {
  noticeBannerView_->setGeometry(rect());
  dismissBannerButton_->move(width() - kDismissRight - dismissBannerButton_->width(), kDismissTop);
}

}  // namespace tarvel
