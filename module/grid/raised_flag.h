// A flag that is up for the time of a scope, also when the scope ends by an exception.
#pragma once

namespace corvanes {

class RaisedFlag {
  public:
    explicit RaisedFlag(bool& flag) : flag_(flag) { flag_ = true; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;
    ~RaisedFlag() { flag_ = false; }

  private:
    bool& flag_;
};

}  // namespace corvanes
