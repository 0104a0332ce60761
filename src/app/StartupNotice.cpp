#include "app/StartupNotice.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace tarvel {
namespace {

constexpr char kStartupVariable[] = "DESKTOP_STARTUP_ID";
constexpr char kTokenVariable[] = "XDG_ACTIVATION_TOKEN";
constexpr char kSeparator = '\t';
// Of the window managers' conventions.
constexpr std::uint8_t kBytewise = 8;
constexpr std::uint8_t kWordwise = 32;
constexpr std::uint32_t kFromApplication = 1;
constexpr char kTimeMark[] = "_TIME";
constexpr std::size_t kMessageBytes = 20;

/// A text from outside goes into a line only if it can't be taken for more than one field.
QByteArray oneField(const QByteArray& text) {
  return text.contains(kSeparator) || text.contains('\n') ? QByteArray() : text;
}

/// The moment of the user's wish by the display's clock; 0 if the id doesn't tell.
std::uint32_t timeOf(const QByteArray& startupId) {
  const auto at = startupId.lastIndexOf(kTimeMark);
  return at < 0 ? 0 : startupId.mid(at + static_cast<qsizetype>(sizeof kTimeMark) - 1).toUInt();
}

/// Messages to the window manager, on the toolkit's own connection.
class Manager {
 public:
  explicit Manager(xcb_connection_t* connection)
      : connection_(connection), root_(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root) {}

  void activate(xcb_window_t window, std::uint32_t time) {
    xcb_client_message_event_t event = message(window, kWordwise, "_NET_ACTIVE_WINDOW");
    event.data.data32[0] = kFromApplication;
    event.data.data32[1] = time;
    send(event, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  }

  /// The text goes out in pieces, its final zero with it.
  void broadcast(std::string_view text) {
    const xcb_window_t sender = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, sender, root_, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t event = message(sender, kBytewise, "_NET_STARTUP_INFO_BEGIN");
    for (std::size_t at = 0; at <= text.size(); at += kMessageBytes) {
      std::fill(std::begin(event.data.data8), std::end(event.data.data8), std::uint8_t{0});
      const std::string_view piece = text.substr(at, kMessageBytes);
      std::copy(piece.begin(), piece.end(), std::begin(event.data.data8));
      send(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
      event.type = atom("_NET_STARTUP_INFO");
    }
    xcb_destroy_window(connection_, sender);
  }

 private:
  xcb_client_message_event_t message(xcb_window_t window, std::uint8_t format, std::string_view type) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = format;
    event.window = window;
    event.type = atom(type);
    return event;
  }
  xcb_atom_t atom(std::string_view name) {
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }
  void send(const xcb_client_message_event_t& event, std::uint32_t mask) {
    xcb_send_event(connection_, 0, root_, mask, reinterpret_cast<const char*>(&event));
  }

  xcb_connection_t* connection_;
  xcb_window_t root_;
};

}  // namespace

StartupNotice StartupNotice::ofEnvironment() {
  return {qgetenv(kStartupVariable), qgetenv(kTokenVariable)};
}

StartupNotice StartupNotice::ofPlatformData(const QVariantMap& platformData) {
  return {platformData.value(QStringLiteral("desktop-startup-id")).toString().toUtf8(),
          platformData.value(QStringLiteral("activation-token")).toString().toUtf8()};
}

QByteArray StartupNotice::line() const {
  return oneField(startupId) + kSeparator + oneField(activationToken) + '\n';
}

StartupNotice StartupNotice::ofLine(const QByteArray& line) {
  const QList<QByteArray> fields = line.trimmed().isEmpty() ? QList<QByteArray>() : line.split(kSeparator);
  return fields.size() == 2 ? StartupNotice{fields[0], fields[1].chopped(fields[1].endsWith('\n') ? 1 : 0)}
                            : StartupNotice{};
}

void StartupNotice::announce() const {
  // A token is good for one window, and a program that this one starts must not inherit an old one.
  activationToken.isEmpty() ? qunsetenv(kTokenVariable) : qputenv(kTokenVariable, activationToken);
}

void StartupNotice::complete(const QWindow& window) const {
  qunsetenv(kTokenVariable);
  // Another platform may offer the interface too, without a display behind it.
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (startupId.isEmpty() || QGuiApplication::platformName() != u"xcb" || !x11) return;
  Manager manager(x11->connection());
  // A window manager that guards the keyboard goes by the time of the wish, which the toolkit doesn't know.
  if (const std::uint32_t time = timeOf(startupId)) {
    manager.activate(static_cast<xcb_window_t>(window.winId()), time);
  }
  QByteArray escaped = startupId;
  escaped.replace('\\', "\\\\").replace('"', "\\\"");
  manager.broadcast(("remove: ID=\"" + escaped + '"').toStdString());
  xcb_flush(x11->connection());
}

}  // namespace tarvel
