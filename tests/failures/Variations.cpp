#include "tests/failures/Variations.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/failures/Company.h"
#include "tests/failures/SmallCharts.h"
#include "tests/reference/ChartFiles.h"
#include "tests/reference/PlainEngine.h"
#include "tests/unit/Catalogue.h"

namespace tavrel {
namespace {

/// One file whose bytes change, under the names of all flowcharts but those that it leads to.
class ManyNames {
 public:
  ManyNames() {
    writeNeighbours(files_.directory());
    const std::filesystem::path file = files_.directory() + "/varied";
    descriptor_ = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor_ < 0) throw std::runtime_error("can't write " + file.string());
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(catalogue.size()); ++i) {
      const std::string name =
          files_.directory() + "/" + catalogue[static_cast<std::size_t>(i)].fileName + ".fv";
      if (std::filesystem::exists(name)) continue;
      std::filesystem::create_symlink(file, name);
      indices_.push_back(i);
    }
  }
  ~ManyNames() { close(descriptor_); }
  ManyNames(const ManyNames&) = delete;
  ManyNames& operator=(const ManyNames&) = delete;

  void fill(const std::string& bytes) const {
    if (pwrite(descriptor_, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()) ||
        ftruncate(descriptor_, static_cast<off_t>(bytes.size())) != 0) {
      throw std::runtime_error("can't write the varied file");
    }
  }

  const std::vector<std::int32_t>& indices() const { return indices_; }
  reference::ChartFiles& files() { return files_; }

 private:
  reference::TemporaryFiles files_;
  int descriptor_;
  std::vector<std::int32_t> indices_;
};

/// Tries one file after another, each as another flowchart of the same subjects as long as
/// there are flowcharts left.
class Trial {
 public:
  explicit Trial(Tally& tally) : tally_(tally) {
    for (const std::int32_t index : names_.indices()) {
      conversations_.push_back(conversationAbout(index));
    }
  }
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

  void tryFile(const std::string& bytes) {
    if (!company_) company_ = std::make_unique<Company>(names_.files().directory(), names_.files());
    names_.fill(bytes);
    ++tally_.tried;
    const Parting parting = company_->ask(conversations_[next_]);
    if (!parting.empty()) report(parting, bytes);
    if (!parting.empty() || ++next_ == conversations_.size()) finish();
  }

  /// Looks at all that was read since the last look. REQUIRES: called after the last file.
  void finish() {
    if (!company_) return;
    const Parting parting = company_->lookEverywhere();
    if (!parting.empty()) report(parting, "one of the last files");
    company_.reset();
    next_ = 0;
  }

 private:
  void report(const Parting& parting, const std::string& file) {
    tally_.findings.push_back(parting + "\n" + file);
  }

  Tally& tally_;
  ManyNames names_;
  std::vector<std::vector<reference::Request>> conversations_;
  std::unique_ptr<Company> company_;
  std::size_t next_ = 0;
};

}  // namespace

Tally tryChangedBytes(const Share& share) {
  Tally tally;
  Trial trial(tally);
  long number = 0;
  for (const std::string& chart : smallCharts()) {
    for (std::size_t at = 0; at < chart.size(); ++at) {
      for (int change = 1; change < 256; ++change) {
        if (!share.takes(number++)) continue;
        std::string changed = chart;
        changed[at] = static_cast<char>(changed[at] ^ change);
        trial.tryFile(changed);
      }
    }
  }
  trial.finish();
  return tally;
}

Tally tryPrefixes(const Share& share) {
  Tally tally;
  Trial trial(tally);
  long number = 0;
  for (const std::string& chart : smallCharts()) {
    for (std::size_t size = 0; size <= chart.size(); ++size) {
      if (share.takes(number++)) trial.tryFile(chart.substr(0, size));
    }
  }
  trial.finish();
  return tally;
}

}  // namespace tavrel
