// The commands that save the page of the last bill.
#pragma once

namespace corvanes {

class KeptView;
class LastBill;

/// PAGEOUT asks for the page's file; the drawing is shown as it was kept, or else as it is now.
void save_page(const LastBill& bill, KeptView& view);
/// -PAGEOUT also asks for a picture of the drawing, SVG or PNG, to show where none was kept.
void save_page_with_picture(const LastBill& bill, KeptView& view);

}  // namespace corvanes
