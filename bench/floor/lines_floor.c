// The smallest program that prints the lines of the simulation, with one puts for each.
//
//   lines_floor [THREADS=1]      milliseconds of wall time and of CPU time go to standard error

#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

// Pairs: a digit, and one less than the number of its lines.
static const int first[] = {
    0, 7,    0, 6,    1, 4,      1, 3,     1, 14,    0, 130,   1, 80,    1, 76,    0, 820,   1, 4596,
    0, 1100, 1, 36,   0, 1400,   1, 2900,  0, 2000,  0, 2345,  1, 89,    1, 60,    0, 2345,  1, 76,
    1, 22,   0, 600,  1, 39,     1, 9,     1, 80,    0, 600,   1, 59,    1, 39,    0, 900,   1, 18,
    0, 600,  1, 79,   1, 4,      1, 300,   0, 1630,  1, 17,    0, 1500,  1, 8,     0, 1100,  1, 7,
    0, 2140, 1, 69,   0, 2230,   1, 69,    0, 1000,  1, 76,    0, 1830,  1, 79,    0, 1900,  1, 87,
    1, 35,   0, 1500, 1, 84,     1, 20,    0, 1600,  1, 69,    1, 69,    0, 2030,  1, 87,    0, 2146,
    0, 900,  1, 79,   1, 49,     1, 49,    0, 306,   0, 1406,  0, 1440,  0, 800,   1, 85999, 0, 2000,
    1, 69,   0, 200,  1, 74,     0, 1743,  1, 75,    1, 170,   1, 115,   1, 175,   0, 240,   1, 5400,
    0, 1030, 1, 5400, 0, 120,    1, 12600, 0, 1400,  1, 52,    1, 21600, 0, 2240,  0, 400,   1, 63,
    1, 7200, 0, 430,  0, 420,    0, 2300,  1, 36000, 0, 1000,  0, 1200,  1, 89,    0, 1400,  1, 43200,
    0, 830,  1, 59,   0, 1530,   1, 600,   0, 1000,  1, 999,   0, 400,   1, 61,    1, 1800,  0, 2240,
    0, 30,   0, 1500, 1, 300000, 0, 240,   1, 12600, 0, 1300,  1, 99,    1, 74,    0, 1540,  1, 64,
    0, 730,  1, 69,   0, 1300,   1, 221,   0, 1245,  1, 9000,  0, 800,   1, 7200,  0, 0,     1, 14400,
    0, 1720, 0, 800,  0, 730,    1, 89,    0, 2100,  1, 69,    0, 700,   1, 5400,  0, 600,   1, 59,
    0, 1700, 1, 68,   0, 1120,   1, 9000,  0, 2120,  1, 3000,  0, 340,   1, 16200, 0, 1930,  1, 10800,
    0, 1530, 0, 1110, 1, 69,     1, 19800, 0, 200,   0, 1950,  1, 69,    1, 79,    0, 100,   1, 69,
    0, 1000, 1, 39,   0, 1100,   0, 2015,  1, 21600, 0, 1000,  1, 7200,  0, 1900,  1, 3600,  0, 1400,
    1, 7200, 0, 1300, 1, 5400,   0, 530,   1, 10800, 0, 740,   1, 3000,  0, 1700,  1, 12600, 0, 1100,
    0, 1500, 0, 2130, 0, 1200,   1, 83,    0, 740,   1, 30600, 0, 1350,  1, 3000,  0, 1730,  0, 2230,
    0, 1600, 0, 520,  1, 14400,  0, 630,   0, 2100,  1, 900,   0, 2058,  1, 1800,  0, 2058,  1, 55,
    1, 1971, 0, 910,  1, 3600,   0, 1800,  1, 69,    1, 64,    0, 2100,  0, 5,     1, 300,   1, 600,
    1, 1000, 1, 1030, 1, 1100,   0, 1300,  1, 38,    0, 600,   1, 37,    0, 500,   1, 37,
};
static const int numbers[] = {
    1,     2,    4,    8,    16,   24,   32,   43,   65,   96,   1,    1850, 680,  3150,
    12000, 5000, 8000, 4620, 194,  213,  248,  214,  1933, 1935, 1970, 1971, 1972, 1973,
    1974,  1975, 1976, 1977, 1979, 1980, 1982, 1984, 1985, 1986, 1987, 1990, 1992, 1993,
    1995,  2000, 2002, 2005, 2006, 2007, 2014, 2015, 2019, 2021, 2022, 2023, 2025, 2560,
};
static const int second[] = {
    0, 184, 1, 360, 0, 100, 1, 3000, 0, 23, 1, 24, 0, 8, 0, 11, 1, 15, 0, 10, 1, 34, 0, 20,
};
static const int last[] = {30917, 803, 3, 15, 5, 10, 4, -1};

static void train(const int *pair, const int *end)
{
    for (; pair < end; pair += 2)
        for (int i = 0; i <= pair[1]; ++i)
            puts(pair[0] ? "1" : "0");
}

static void list(const int *number, const int *end)
{
    char text[16];
    for (; number < end; ++number) {
        snprintf(text, sizeof text, "%d", *number);
        puts(text);
    }
}

#define ALL(table) table, table + sizeof table / sizeof *table

static void *run(void *unused)
{
    static const int between[] = {1200, 3686, 1537};
    static const int pause[] = {0, 15};
    puts("revision2");
    train(ALL(first));
    list(ALL(numbers));
    train(ALL(second));
    list(ALL(between));
    train(ALL(pause));
    list(ALL(last));
    puts("product code :20250401");
    return unused;
}

static double milliseconds(clockid_t clock)
{
    struct timespec now;
    clock_gettime(clock, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

int main(int argc, char *argv[])
{
    const int threads = argc > 1 ? atoi(argv[1]) : 1;
    const double wall = milliseconds(CLOCK_MONOTONIC), cpu = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    if (threads > 1) {
        pthread_t started[16];
        for (int i = 0; i < threads && i < 16; ++i)
            pthread_create(&started[i], NULL, run, NULL);
        for (int i = 0; i < threads && i < 16; ++i)
            pthread_join(started[i], NULL);
    } else {
        run(NULL);
    }
    fflush(stdout);
    fprintf(stderr, "%f %f\n", milliseconds(CLOCK_MONOTONIC) - wall,
            milliseconds(CLOCK_PROCESS_CPUTIME_ID) - cpu);
    return 0;
}
