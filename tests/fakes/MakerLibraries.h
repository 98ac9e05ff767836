#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "AppMgr.h"
#include "AppPrinterSdk.h"
#include "AppSdk.h"

/// The maker's libraries as one object: a test overrides the calls that it expects.
namespace fakes {

/// One virtual per library function, of the same name. Each default fails the running test with "unscripted call: NAME" and
/// returns what the library returns for a failed call. A further function is one more row in maker_calls.inc.
///
/// Any thread may call. An installed object outlives every thread that may still call the libraries.
class MakerLibraries {
 public:
  MakerLibraries() = default;
  virtual ~MakerLibraries();
  MakerLibraries(const MakerLibraries&) = delete;
  MakerLibraries& operator=(const MakerLibraries&) = delete;

#define FAKES_MAKER_CALL(result, name, parameters, arguments, failure) virtual result name parameters;
#include "fakes/maker_calls.inc"
#undef FAKES_MAKER_CALL

  /// All calls so far, in order, with what they were given, such as `AppMgr_CheckIpChange(printer-1, false)`: a printer shows
  /// as its uid, a text in quotation marks, an out parameter as what it held before the call, a null pointer as `null`. A
  /// record or block shows as one of its members: its address, image, name, numbers, or size.
  std::vector<std::string> calls() const;

  /// Runs before the call is answered, on the calling thread. An override calls this one.
  virtual void record(const std::string& call);

 private:
  mutable std::mutex m_mutex;
  std::vector<std::string> m_calls;
};

/// Makes one object the maker's libraries until the end of the scope, then the previous one again. While none is installed,
/// every call is unscripted.
class InstalledMaker {
 public:
  explicit InstalledMaker(MakerLibraries& libraries);
  ~InstalledMaker();
  InstalledMaker(const InstalledMaker&) = delete;
  InstalledMaker& operator=(const InstalledMaker&) = delete;

 private:
  MakerLibraries* const m_previous;
};

}  // namespace fakes
