#pragma once
#include <memory>

#include "platform/FileSystem.h"
#include "platform/HttpClient.h"
#include "platform/RunLoop.h"

namespace tarvel::viewer {

/// What becomes of the files of single weeks: they arrive, never arrive, aren't there, or arrive cut short.
enum class WeekFiles { delivered, withheld, missing, damaged };

/// A folder of published files in the place of all servers: a URL stands for the file at its path, whatever
/// its host. So the engine that fetches from servers reads the folder, and no network is touched.
class FolderHttpClient : public HttpClient {
 public:
  FolderHttpClient(FileSystem& files, RunLoop& mainLoop, Path folder, WeekFiles weekFiles);
  ~FolderHttpClient() override;

  void get(const std::string& url, Completion completion) override;

  /// Requests so far that have got, or will get, an answer.
  int answered() const { return answered_; }

 private:
  HttpResult answer(const std::string& url) const;

  FileSystem& files_;
  RunLoop& mainLoop_;
  Path folder_;
  WeekFiles weekFiles_;
  int answered_ = 0;
  std::shared_ptr<char> alive_ = std::make_shared<char>();
};

}  // namespace tarvel::viewer
