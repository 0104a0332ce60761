#include "mainwindow/PhotosPane.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>
#include <cmath>

#include "mainwindow/ContentBox.h"

namespace tarvel {
namespace {

constexpr int kMargin = 8;
constexpr int kBorder = 1;
constexpr int kTextInset = 4;
constexpr int kTextGap = 12;
constexpr int kSliderWidth = 160;
constexpr int kTitleLineHeight = 24;
constexpr int kSliderStep = 10;
const TextAttributes kTitleAttributes{13.0, FontWeight::medium, kLabel, kLeftStyle};
const TextAttributes kNumberAttributes{11.0, FontWeight::regular, kSecondaryLabel, kLeftStyle};

/// Around pages that have nothing to scroll: no key means anything to it, so that all go on to the window.
class PageArea : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;

 protected:
  void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
};

void setUp(QScrollArea& area, QWidget* content) {
  area.setFrameShape(QFrame::NoFrame);
  area.setFocusPolicy(Qt::NoFocus);
  area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area.setWidget(content);
}

}  // namespace

PhotosPane::PhotosPane(const WindowContext& context, PhotosViewOwner& owner, QWidget* parent)
    : WindowPane(context.services.notifications, context.observerCensus, parent) {
  galleryScrollView_ = new QScrollArea(this);
  albumScrollView_ = new QScrollArea(this);
  photoScrollView_ = new PageArea(this);
  galleryView_ = new GalleryView(context, owner);
  albumView_ = new AlbumView(context, owner);
  photoPagingView_ = new PagingView(context);
  setUp(*galleryScrollView_, galleryView_);
  setUp(*albumScrollView_, albumView_);
  setUp(*photoScrollView_, photoPagingView_);
  photoScrollView_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  photoSwipeController_ = new SwipeGestureController(context, *photoPagingView_, *photoScrollView_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, 0, kMargin, kMargin);
  column->setSpacing(kTextInset);
  column->addWidget(makeTitleLine());
  galleryBox_ = boxed(*galleryScrollView_);
  albumBox_ = boxed(*albumScrollView_);
  photoBox_ = boxed(*photoScrollView_);
  for (ContentBox* box : {galleryBox_, albumBox_, photoBox_}) column->addWidget(box, 1);
  showOnly(PhotoViewOption::gallery);
}

QWidget* PhotosPane::makeTitleLine() {
  auto* line = new QWidget(this);
  line->setFixedHeight(kTitleLineHeight);
  titleLabel_ = new TextLabel(kTitleAttributes, TextLabel::Lines::one, line);
  photoNumberField_ = new TextLabel(kNumberAttributes, TextLabel::Lines::one, line);
  sizeSlider_ = new QSlider(Qt::Horizontal, line);
  sizeSlider_->setRange(kLeastAlbumHeight, kGreatestHeight);
  sizeSlider_->setPageStep(kSliderStep);
  sizeSlider_->setSingleStep(kSliderStep);
  sizeSlider_->setFixedWidth(kSliderWidth);
  sizeSlider_->setToolTip(QStringLiteral("Size of the pictures"));
  sizeSlider_->setAccessibleName(QStringLiteral("Size of the pictures"));
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(kTextInset, 0, kTextInset, 0);
  row->setSpacing(kTextGap);
  row->addWidget(titleLabel_);
  row->addWidget(photoNumberField_);
  row->addStretch(1);
  row->addWidget(sizeSlider_);
  return line;
}

ContentBox* PhotosPane::boxed(QScrollArea& area) {
  auto* box = new ContentBox(kContentBackground, this);
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
  column->addWidget(&area);
  return box;
}

void PhotosPane::showOnly(PhotoViewOption option) {
  // What is to go goes first, so that the window doesn't make room for two.
  galleryBox_->setVisible(false);
  albumBox_->setVisible(false);
  photoBox_->setVisible(false);
  ContentBox* shown = option == PhotoViewOption::gallery ? galleryBox_
                      : option == PhotoViewOption::album ? albumBox_
                                                         : photoBox_;
  shown->setVisible(true);
}

void PhotosPane::setSlider(int least, double value) {
  const QSignalBlocker blocker(sizeSlider_);
  sizeSlider_->setMinimum(least);
  sizeSlider_->setValue(static_cast<int>(std::lround(value)));
}

void PhotosPane::setTexts(const std::string& title, const std::string& number) {
  titleLabel_->setTextUtf8(title);
  photoNumberField_->setTextUtf8(number);
}

void PhotosPane::close() {
  albumView_->close();
  galleryView_->close();
  photoPagingView_->close();
  WindowPane::close();
}

}  // namespace tarvel
