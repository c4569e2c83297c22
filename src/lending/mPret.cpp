#include "lending/mPret.h"

void MarquerPrete(FenetreDocument& /*fenetre*/) {}

void MarquerRendu(FenetreDocument& /*fenetre*/) {}
