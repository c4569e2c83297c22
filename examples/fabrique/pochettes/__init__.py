"""Sleeves for the sample records: abstract compositions, drawn from the name of the record."""
