// Form8, "Picture Storage": the fixed pictures of the plots, created once at start-up and kept
// for the whole run. Every picture is a PlotSurface in pixel mode; the sprites are drawn here in
// code, the all-sky picture is built into the program from data/pictures/sky408.bmp.
//
//   Pic408             360 x 360 false-colour model of the sky at 408 MHz on dark blue, right
//                      ascension 0 to 360 across, declination +90 at the top to -90 at the foot
//   PicSun, PicJup     19 x 19 sprites: a disc on black
//   PicMask            19 x 19: the disc in black on white, the one mask of both sprites
//   PicBack1..PicBack4 19 x 19 save-under scratch for MoveSprite
#pragma once

#include "render/plot_surface.h"


namespace tarvelle {

// The sprites' disc: 17 pixels wide and 16 high, its first row and column one pixel in from the
// top-left corner of the 19 x 19 block; the other 137 pixels of the block lie outside it.
constexpr int kSpriteSize = 19;
constexpr int kSpriteDiscPixels = 224;
bool SpriteDiscContains(int x, int y);

class Form8 {
public:
    Form8();

    PlotSurface Pic408{360, 360, RGB(0, 0, 96)};
    PlotSurface PicSun{kSpriteSize, kSpriteSize, 0};
    PlotSurface PicJup{kSpriteSize, kSpriteSize, 0};
    PlotSurface PicMask{kSpriteSize, kSpriteSize, 0xFFFFFF};
    PlotSurface PicBack1{kSpriteSize, kSpriteSize, 0};
    PlotSurface PicBack2{kSpriteSize, kSpriteSize, 0};
    PlotSurface PicBack3{kSpriteSize, kSpriteSize, 0};
    PlotSurface PicBack4{kSpriteSize, kSpriteSize, 0};
};

using PictureStore = Form8;

} // namespace tarvelle
