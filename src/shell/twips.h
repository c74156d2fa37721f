#pragma once
// Window places and sizes are kept in twips, 1440 to the inch: 15 to a pixel on
// a screen of 96 dots per inch.

namespace quillon {

double TwipsPerPixel();
int PixelsToTwips(int pixels);
int TwipsToPixels(int twips);

}  // namespace quillon
