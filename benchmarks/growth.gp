# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT
#
# Draws time and memory over size, as the two halves of one picture, from what growth.awk has
# written. Given: curves and picture, two files; unit, what the size counts.

set terminal svg size 860,360 dynamic font 'sans-serif,13' background rgb '#ffffff'
set output picture
set logscale xy
set grid xtics ytics linecolor rgb '#dddddd' linetype 1
set border 3 linecolor rgb '#888888'
set tics nomirror textcolor rgb '#333333'
set mxtics 1
set mytics 1
set format x '10^{%T}'
set format y '%g'
set xlabel unit textcolor rgb '#333333'
set key top left reverse Left noopaque textcolor rgb '#333333'
set style line 1 linecolor rgb '#8a8a8a' linewidth 2 pointtype 4 pointsize 0.7
set style line 2 linecolor rgb '#0b6aa8' linewidth 2 pointtype 7 pointsize 0.7

set multiplot layout 1,2
do for [column = 2:3] {
    stats curves index 1 every ::1 using 1:column nooutput
    set xrange [STATS_min_x / 1.5:STATS_max_x * 1.5]
    # through the library's first point, which is its lowest
    proportional(x) = STATS_min_y * x / STATS_min_x
    set title (column == 2 ? 'time, ms' : 'memory, MiB') textcolor rgb '#333333'
    plot proportional(x) title 'in proportion to size' with lines dashtype 2 linecolor rgb '#b0b0b0', \
        for [i = 0:1] curves index i using 1:column title columnheader(1) \
            with linespoints linestyle i + 1
}
unset multiplot
