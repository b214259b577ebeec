# SPDX-License-Identifier: MIT
# Draws what a file costs against the number of files: gnuplot -c scaling.gp DATA.csv IMAGE.svg
set terminal svg size 800,480 font "sans-serif,13" background rgb "white"
set output ARG2
set datafile separator ","
set datafile columnheaders
set title "Cost of reading a profile (medians and quartiles)"
set xlabel "files in the folder"
set ylabel "microseconds a file"
set logscale x
set format x "%.0f"
set xrange [*<100:*]
set yrange [0:*]
set grid
set key outside bottom center horizontal
titles = "'open, fstat, read, close' 'pugixml, own SIMD conversion' 'documents' 'kmManager::Load'"
plot for [i=1:4] ARG1 using 1:3*i-1:3*i:3*i+1 with yerrorlines pt 7 ps 0.6 lw 1.5 title word(titles, i)
