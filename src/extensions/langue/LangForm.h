// Translates a form: see TextesDeForme for the keys.
#pragma once

class QWidget;

/// Puts the texts of the language in force into `form` and its controls, each control known by its objectName. The last
/// step of every form's load: what is set later comes from LangMsg instead. Nothing happens while the program speaks
/// French. Forms inside the form, as the document windows of the frame, are translated by themselves.
///
/// "&" marks a mnemonic as everywhere in Qt. A control's accessible name follows a caption or tool tip that it repeats;
/// another one has a text of its own.
void LangForm(QWidget& form);

/// The same for a form that is open already, in whatever language: what the language in force has no text for is
/// French again. A text that the program has set since, as a count or a file's name, is left alone there.
void ChangerLangueDe(QWidget& form);
