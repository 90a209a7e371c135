// How CDataExchange::Fail leaves DoDataExchange; only UpdateData catches it.
#pragma once

namespace framework {

struct DataExchangeRefused {};

}  // namespace framework
