// Fields in which titles of columns and separators are typed.
#pragma once

class QLineEdit;

/// Keeps the field to what a title can be: one line without "|", which is told ("msg68").
void NeTaperQuUnTitre(QLineEdit& champ);
/// Keeps the field to one line.
void NeTaperQuUneLigne(QLineEdit& champ);
