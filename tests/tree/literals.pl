#!/usr/bin/env perl
# Prints the narrow literals of C++ sources that are not plain ASCII, one a line, as
# "file:line: text": literals.pl FILE... Their bytes are GBK in the program, so the text must be.

use strict;
use warnings;

# Named characters count as what they stand for.
sub characters {
    my ($text) = @_;
    $text =~ s{\\u\{?([0-9A-Fa-f]{4})\}?|\\U([0-9A-Fa-f]{8})}{
        my $character = chr(hex($1 // $2));
        utf8::encode($character);
        $character;
    }gex;
    return $text;
}

for my $file (@ARGV) {
    open my $source, '<:raw', $file or die "$file: $!\n";
    my $code = do { local $/; <$source> };
    my $line = 1;
    while ($code =~ m{\G(?:
            (?<skip> //(?:[^\\\n]|\\.)* | /\*.*?\*/ | \d[\w.]*(?:'\w+)* )
          | (?<prefix> \b(?:u8|u|U|L)?R)"(?<mark>[^(\s]*)\((?<raw>.*?)\)\k<mark>"
          | (?<prefix> (?:\b(?:u8|u|U|L))?)"(?<text>(?:[^"\\\n]|\\.)*)"
          | (?<prefix> (?:\b(?:u8|u|U|L))?)'(?<text>(?:[^'\\\n]|\\.)+)'
          | \w+ | .
        )}gsx) {
        my ($all, $start) = ($&, $line);
        my ($prefix) = grep { defined } @{ $-{prefix} // [] };
        my ($text)   = grep { defined } @{ $-{text} // [] }, @{ $-{raw} // [] };
        $line += ($all =~ tr/\n//);
        next if !defined $text || $prefix =~ /[uUL]/;
        $text = characters($text) unless $prefix =~ /R/;
        next unless $text =~ /[^\x00-\x7f]/;
        $text =~ s/\n/ /g;
        print "$file:$start: $text\n";
    }
}
