#include "document/RescueStore.h"

#include "platform/AtomicFile.h"
#include "platform/JsonFile.h"
#include "platform/ProcessIdentity.h"
#include "platform/StateDirectory.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace Tesselor {

namespace fs = std::filesystem;

namespace {

constexpr char pathKey[] = "path", rootKey[] = "root", fileStateKey[] = "fileState", timeKey[] = "time";
constexpr std::string_view extension = ".rescue";

/// What stands in the first line of a copy. The document's text follows as it is.
std::string HeaderOf(const RescuedDocument& document) {
  const JsonPtr header(cJSON_CreateObject());
  cJSON_AddStringToObject(header.get(), pathKey, document.path.c_str());
  cJSON_AddStringToObject(header.get(), rootKey, document.root.c_str());
  cJSON_AddStringToObject(header.get(), fileStateKey, document.fileState.c_str());
  cJSON_AddNumberToObject(header.get(), timeKey, static_cast<double>(std::time(nullptr)));
  return PrintJson(header.get(), JsonForm::Compact) + "\n";
}

std::optional<RescueCopy> ReadHeader(const fs::path& file, const std::string& text) {
  const JsonParseResult header = ParseJson(text.substr(0, text.find('\n')));
  if (!header) return std::nullopt;
  const auto member = [&](const char* key) {
    return JsonText(cJSON_GetObjectItem(header.json.get(), key)).value_or(std::string());
  };
  RescueCopy copy{file, {member(pathKey), member(rootKey), member(fileStateKey)}, 0};
  if (const cJSON* time = cJSON_GetObjectItem(header.json.get(), timeKey); cJSON_IsNumber(time))
    copy.time = static_cast<std::time_t>(time->valuedouble);
  return copy;
}

} // namespace

RescueStore::RescueStore(fs::path directory) : directory(std::move(directory)), owner(ProcessIdentity::Own()) {}

fs::path RescueStore::FileOf(std::string_view suffix) const {
  return directory / (owner + std::string(suffix) + std::string(extension));
}

bool RescueStore::Write(const RescuedDocument& document, std::string_view text) const {
  if (!MakePrivateDirectory(directory)) return false;
  return AtomicFile::Write(FileOf("").string(), HeaderOf(document).append(text)) == FileWriteResult::Written;
}

void RescueStore::Remove() const {
  std::error_code error;
  fs::remove(FileOf(""), error);
  // Of a child that was ended while it wrote.
  AtomicFile::RemoveLeftovers(directory);
}

std::optional<RescueCopy> RescueStore::SetAside(const RescuedDocument& document, std::string_view text) {
  if (!MakePrivateDirectory(directory)) return std::nullopt;
  const fs::path file = FileOf("." + std::to_string(++setAsideCount));
  if (AtomicFile::Write(file.string(), HeaderOf(document).append(text)) != FileWriteResult::Written)
    return std::nullopt;
  return RescueCopy{file, document, std::time(nullptr)};
}

std::vector<RescueCopy> RescueStore::Abandoned() const {
  std::vector<RescueCopy> copies;
  std::error_code error;
  fs::directory_iterator entries(directory, error);
  for (const fs::directory_iterator end; !error && entries != end; entries.increment(error)) {
    const fs::path& file = entries->path();
    if (file.extension() != extension) continue;
    const std::string name = file.filename().string();
    if (ProcessIdentity::IsAlive(name.substr(0, name.find('.')))) continue;
    if (const std::optional<std::string> text = ReadTextFile(file.string()))
      if (std::optional<RescueCopy> copy = ReadHeader(file, *text)) copies.push_back(*std::move(copy));
  }
  std::sort(copies.begin(), copies.end(), [](const RescueCopy& a, const RescueCopy& b) {
    return a.time != b.time ? a.time > b.time : a.file < b.file;
  });
  return copies;
}

std::optional<std::string> RescueStore::Claim(RescueCopy& copy) {
  std::error_code error;
  const fs::path own = FileOf("." + std::to_string(++setAsideCount));
  fs::rename(copy.file, own, error);
  if (error) return std::nullopt;
  copy.file = own;
  std::optional<std::string> text = ReadTextFile(own.string());
  if (text) text->erase(0, text->find('\n') + 1);
  return text;
}

void RescueStore::Delete(const RescueCopy& copy) {
  std::error_code error;
  fs::remove(copy.file, error);
}

} // namespace Tesselor
