// How far an operation on many entries has come. The operation tells it, a window shows it and stays alive meanwhile.
#pragma once

class Avancement
{
public:
    virtual ~Avancement() = default;

    /// `fait` of `total` entries are done. To be called for every entry: only one call in `Pas` costs anything.
    void Avancer(int fait, int total)
    {
        if (fait % Pas == 0)
            Dire(fait, total);
    }

    /// The same for steps that are long themselves, whatever their number.
    void Signaler(int fait, int total) { Dire(fait, total); }
    /// The user has given up what is under way; whoever allows that asks.
    virtual bool EstAbandonne() const { return false; }

    static constexpr int Pas = 1024;

protected:
    virtual void Dire(int fait, int total) = 0;
};

/// For those who show nothing.
class SansAvancement final : public Avancement
{
protected:
    void Dire(int, int) override {}
};
