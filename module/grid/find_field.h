// FindField, a one-line field of a dialog for text of both directions.
#pragma once

#include "bidi/multi_edit.h"

namespace corvanes {

// Leaves Tab, Return and Escape to the dialog. A text with Hebrew goes from the right, any other from the left.
class FindField : public CUGMultiEdit {
  public:
    void SetText(const std::wstring& text);

  protected:
    UINT OnGetDlgCode();
    void OnTextChanged(int length) override;
    DECLARE_MESSAGE_MAP()

  private:
    void FollowDirection();
};

}  // namespace corvanes
