// The clipboard of the desktop, as far as it holds plain text.
#pragma once

#include <QString>

#include <optional>

class PressePapiers
{
public:
    PressePapiers() = default;
    virtual ~PressePapiers() = default;
    PressePapiers(const PressePapiers&) = delete;
    PressePapiers& operator=(const PressePapiers&) = delete;

    /// The text that any program of the desktop put there last; nothing when there is none, or no plain text.
    virtual std::optional<QString> Texte() const = 0;
    /// The text takes the place of all that the clipboard holds. It stays there after the program has ended where the
    /// desktop keeps such texts.
    virtual void Poser(const QString& texte) = 0;
    virtual void Vider() = 0;
};

/// For programs without windows.
class AucunPressePapiers : public PressePapiers
{
public:
    std::optional<QString> Texte() const override { return std::nullopt; }
    void Poser(const QString&) override {}
    void Vider() override {}
};
