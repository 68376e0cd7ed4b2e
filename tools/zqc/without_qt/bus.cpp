// ZQSwiftUI, MIT licence; see LICENSE.
#include <tools/zqc/bus.hpp>

namespace zq::zqc {

int checkBus(const Session& session) {
  return session.fail(exitUnavailable, "this zqc was built without Qt, which broadcasts need");
}

int broadcastProject(const Session& session, const std::string&, const ZQUICProject&) {
  return checkBus(session);
}

int watchPayloads(const Session& session, const std::string&,
                  std::function<bool(const std::string&)>) {
  return checkBus(session);
}

}  // namespace zq::zqc
