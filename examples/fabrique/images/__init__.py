"""Encoders of the picture formats that catalogues use. A picture is a width, a height and its (red, green, blue) pixels
row by row from the top."""
