// The commands that save the page of the last bill.
#pragma once

namespace corvanes {

class LastBill;

/// PAGEOUT asks for the page's file; the drawing is shown as it is now.
void save_page(const LastBill& bill);
/// -PAGEOUT asks for the drawing's picture too: an SVG file of SVGOUT's or a PNG file. Where a file that ends in ".svg"
/// is not there, the PNG file of its name is taken.
void save_page_with_picture(const LastBill& bill);

}  // namespace corvanes
