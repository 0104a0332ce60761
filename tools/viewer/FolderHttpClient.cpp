#include "viewer/FolderHttpClient.h"

#include "model/FileNames.h"
#include "publish/FieldParsers.h"

namespace tarvel::viewer {
namespace {

constexpr int kNotFound = 404;

/// The path of an address, without the '/' at its front; empty if there is none.
std::string pathOf(const std::string& url) {
  const std::size_t scheme = url.find("://");
  if (scheme == std::string::npos) return {};
  const std::size_t path = url.find('/', scheme + 3);
  return path == std::string::npos ? std::string() : url.substr(path + 1);
}

bool isWeekFile(const std::string& url) {
  return parseWeekName(withoutExtension(fileNameOf(url))).has_value();
}

}  // namespace

FolderHttpClient::FolderHttpClient(FileSystem& files, RunLoop& mainLoop, Path folder, WeekFiles weekFiles)
    : files_(files), mainLoop_(mainLoop), folder_(std::move(folder)), weekFiles_(weekFiles) {}

FolderHttpClient::~FolderHttpClient() = default;

void FolderHttpClient::get(const std::string& url, Completion completion) {
  if (weekFiles_ == WeekFiles::withheld && isWeekFile(url)) return;
  ++answered_;
  mainLoop_.post([this, url, completion = std::move(completion), alive = std::weak_ptr(alive_)] {
    if (!alive.expired()) completion(answer(url));
  });
}

HttpResult FolderHttpClient::answer(const std::string& url) const {
  const std::string path = pathOf(url);
  // A path that leads out of the folder names nothing in it.
  if (!publish::isSafePath(path)) return HttpResponse{kNotFound, {}};
  const bool isWeek = isWeekFile(url);
  if (isWeek && weekFiles_ == WeekFiles::missing) return HttpResponse{kNotFound, {}};
  Result<Bytes> content = files_.read(join(folder_, path));
  if (!content) return HttpResponse{kNotFound, {}};
  HttpResponse response;
  response.body = std::move(content).value();
  if (isWeek && weekFiles_ == WeekFiles::damaged) response.body.resize(response.body.size() / 2);
  return response;
}

}  // namespace tarvel::viewer
