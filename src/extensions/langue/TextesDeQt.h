// The texts that Qt has by itself, in dialogs for files, menus of fields and menus of windows.
#pragma once

#include <QString>
#include <QTranslator>

#include <memory>

/// Has Qt speak the language in force, which tells its code ("de") like a message. Qt speaks its own English where it
/// has no texts for it.
class TextesDeQt
{
public:
    TextesDeQt() = default;
    ~TextesDeQt();
    TextesDeQt(const TextesDeQt&) = delete;
    TextesDeQt& operator=(const TextesDeQt&) = delete;

    /// Takes the language that is in force now. What is open already shows the new texts where Qt looks them up anew.
    void Accorder();

private:
    void Retirer();

    QString m_code;
    std::unique_ptr<QTranslator> m_textes;
};
