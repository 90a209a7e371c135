#include "page/last_bill.h"

#include <windows.h>

#include <aced.h>

namespace corvanes {
namespace {

constexpr wchar_t variable[] = L"CORVANES_JSON";

std::filesystem::path bill_file() {
    wchar_t value[ACED_ENV_LENGTH];
    return acedGetEnv(variable, value) == RTNORM ? value : L"";
}

}  // namespace

LastBill::LastBill() {
    if (bill_file().empty() && !folder_.path().empty()) {
        names_file_ = SetEnvironmentVariableW(variable, (folder_.path() / L"bill.json").c_str()) != 0;
    }
    older_ = version_there();
    acDocManagerPtr()->addReactor(this);
}

LastBill::~LastBill() {
    if (AcApDocManager* const manager = acDocManagerPtr()) {
        manager->removeReactor(this);
    }
    if (names_file_ && bill_file().parent_path() == folder_.path()) {
        SetEnvironmentVariableW(variable, nullptr);
    }
}

std::optional<base::FileContents> LastBill::read() const {
    const Version there = version_there();
    if (there.changed == 0 || there == older_) {
        return std::nullopt;
    }
    auto contents = base::FileContents::read(there.file);
    return contents ? std::optional(*std::move(contents)) : std::nullopt;
}

LastBill::Version LastBill::version_there() {
    Version version{bill_file()};
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (GetFileAttributesExW(version.file.c_str(), GetFileExInfoStandard, &data) != 0) {
        version.changed = static_cast<unsigned long long>(data.ftLastWriteTime.dwHighDateTime) << 32 |
                          data.ftLastWriteTime.dwLowDateTime;
    }
    return version;
}

}  // namespace corvanes
