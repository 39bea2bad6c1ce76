// Acts as a user whom permissions stop, until the end of the scope. Tests that run as root need it: nothing
// stops root.
#pragma once

#include <unistd.h>

namespace tembrel::test {

class OrdinaryUser {
 public:
  OrdinaryUser() : before(geteuid()) {
    constexpr uid_t kNobody = 65534;
    effective = before != 0 || seteuid(kNobody) == 0;
  }
  ~OrdinaryUser() {
    if (geteuid() != before && seteuid(before) != 0) {
      _exit(1);
    }
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  // False when the system did not let the test change its user: the test proves nothing then.
  bool Effective() const { return effective; }

 private:
  uid_t before;
  bool effective;
};

}  // namespace tembrel::test
