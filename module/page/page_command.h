// The commands that save the page of the last bill.
#pragma once

namespace corvanes {

class LastBill;

/// PAGEOUT asks for the page's file; the drawing is shown as it is now.
void save_page(const LastBill& bill);
/// -PAGEOUT also asks for the drawing's picture: an SVG file that SVGOUT has written, or a PNG file. In place of a
/// ".svg" file that is missing, the ".png" file of the same name is taken.
void save_page_with_picture(const LastBill& bill);

}  // namespace corvanes
