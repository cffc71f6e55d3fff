#!/usr/bin/env perl
# Fails when an include points against the order of the folders: includes.pl ROOT
#
# A folder may include its own headers and those of what it stands on. Tests and benchmarks may
# include anything. Outside of platform/ nothing asks which system it is built for.

use strict;
use warnings;

my $root = shift or die "usage: includes.pl ROOT\n";
chdir $root or die "$root: $!\n";

# The windows of the front end stand on these.
my @windows = qw(platform/types.h platform/system.h platform/export.h platform/text platform/toolkit);
my @pages   = qw(session funds orderentry stops lists);
my @front   = (@pages, qw(plugin controls plugin/contract plugin/settings));

# What each folder may include beside itself. A longer path wins over a shorter one.
my %allowed = (
    'platform'         => [],
    'platform/text'    => [qw(platform/types.h)],
    'platform/digest'  => [],
    'platform/win32'   => [qw(platform/types.h platform/start.h platform/text platform/present)],
    'platform/present' => [qw(platform/types.h)],
    'platform/toolkit' => [qw(platform/types.h platform/system.h)],
    'platform/testing' =>
        [qw(platform/types.h platform/system.h platform/start.h platform/text platform/win32/include)],
    'plugin/contract' => [qw(platform/types.h platform/heap.h platform/text)],
    'plugin/settings' => [qw(platform/types.h platform/system.h platform/text plugin/contract)],
    'controls'        => [@windows, qw(plugin/contract plugin/settings)],
    (map { $_ => [@windows, qw(controls plugin/contract plugin/settings)] } @pages),
    'plugin'    => [@windows, @front, 'platform/digest'],
    'papercore' => [qw(platform/types.h platform/text plugin/contract)],
    'host'      =>
        [@windows, @front, qw(papercore host/skin host/market platform/start.h platform/testing)],
    'host/skin'   => [@windows, 'plugin/contract'],
    'host/market' => [qw(platform/types.h platform/text plugin/contract papercore)],
    'examples'    => [
        @windows, qw(controls plugin plugin/contract plugin/settings host/skin platform/start.h platform/testing)],
);

# Rules are plain functions on records, so any page may use those of its sibling.
my $rules = qr{^(?:@{[join '|', @pages]})/\w+_rules\.h$};

# Headers of others, each with the folders that may include it.
my @external = (
    [qr{^(?:windows|windef|win(?:base|nls|gdi|user|error)\w*|windowsx|commctrl\w*|commdlg|richedit|objbase)\.h$},
        qr{^platform/(?:win32|testing)/|^platform/(?:types|heap|system)\.h$}],
    [qr{^(?:ft2build\.h|freetype/|fontconfig/|png\.h)}, qr{^platform/win32/}],
    [qr{^SDL},                                         qr{^platform/present/}],
    [qr{^sqlite3},                                     qr{^papercore/}],
    [qr{^openssl/},                                    qr{^papercore/|^platform/digest/}],
    [qr{^nlohmann/},                                   qr{^(?:papercore|host)/}],
    [qr{^CLI/},                                        qr{^host/}],
    [qr{^(?:gtest|gmock|benchmark)/},                  qr{^$}],
);

my @folders = sort { length $b <=> length $a } keys %allowed;

sub folder_of {
    my ($path) = @_;
    for my $folder (@folders) { return $folder if index($path, "$folder/") == 0 }
    return undef;
}

# The problem of an include in a file of the folder, or nothing. What only Windows compiles in
# platform/ may use the system itself.
sub problem {
    my ($file, $folder, $mark, $target, $windows_only) = @_;
    return 'goes up a folder' if $target =~ m{(?:^|/)\.\.(?:/|$)};
    if ($mark eq '"' && $target !~ m{/}) {
        my $beside = $file =~ s{[^/]*$}{$target}r;
        return -e $beside ? undef : 'is not beside this file';
    }
    if ($mark eq '<' || !-e $target) {
        for my $rule (@external) {
            my ($header, $users) = @$rule;
            next if $target !~ $header || $file =~ $users;
            return 'is not for this folder' unless $windows_only && $rule == $external[0];
        }
        return $mark eq '"' ? 'is no file of the tree' : undef;
    }
    my $home = folder_of($target);
    return 'belongs to no folder of the product' unless defined $home;
    return undef if $home eq $folder || $target =~ $rules && grep { $_ eq $folder } @pages;
    for my $entry (@{ $allowed{$folder} }) {
        return undef if $target eq $entry || $home eq $entry;
        return undef if index($target, "$entry/") == 0 && !exists $allowed{$entry};
    }
    return "points against the order: $folder does not know $home";
}

my $faults = 0;
my $seen   = 0;
my @tops   = grep { -d } map { m{/} ? () : $_ } keys %allowed;
open my $files, '-|', 'find', @tops, qw(-name *.h -o -name *.cpp) or die "find: $!\n";
while (my $file = <$files>) {
    chomp $file;
    my $folder = folder_of($file) // next;
    $seen++;
    my @conditions;
    open my $source, '<', $file or next;
    while (my $line = <$source>) {
        my $problem;
        if ($line =~ m{^\s*#\s*include\s*([<"])([^>"]+)[>"]}) {
            $problem = problem($file, $folder, $1, $2, scalar grep { $_ } @conditions);
            $problem = "<$2> $problem" if $problem;
        } elsif ($file =~ m{^platform/} && $line =~ m{^\s*#\s*(ifdef\s+_WIN32\b)?(if)?(else)?(endif)?}) {
            push @conditions, !!$1 if $1 || $2;
            $conditions[-1] = 0 if $3;
            pop @conditions if $4;
        } elsif ($line =~ m{^\s*#\s*(?:if|elif).*\b_WIN32\b} && $file !~ m{^platform/}) {
            $problem = 'asks for the system outside of platform/';
        }
        next unless $problem;
        print "$file:$.: $problem\n";
        $faults++;
    }
}
print "$seen files, $faults faults\n";
exit($faults || !$seen ? 1 : 0);
