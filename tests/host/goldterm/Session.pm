package Session;

# A terminal that takes commands: starts it headless over a data folder, with the market sixty times
# as fast, asks and reads replies.

use strict;
use warnings;
use IPC::Open2;
use JSON::PP;

sub new {
    my ($class, $goldterm, $data) = @_;
    local $ENV{XDG_DATA_HOME} = $data;
    delete local $ENV{APPDATA};
    my ($from, $to);
    my $pid = open2($from, $to, $goldterm, '--headless', '--automation', '--speed', '60',
        '--shots', $data);
    $to->autoflush(1);
    return bless {pid => $pid, from => $from, to => $to}, $class;
}

# Sends lines without waiting for what they cause.
sub send_lines {
    my ($self, @lines) = @_;
    print {$self->{to}} map {"$_\n"} @lines;
}

# The next reply, decoded; dies when there is none or when it is no reply.
sub reply {
    my ($self) = @_;
    my $line = readline $self->{from};
    die "the terminal ended without a reply\n" unless defined $line;
    my $reply = JSON::PP->new->utf8->decode($line);
    die "no reply: $line" unless ref $reply eq 'HASH' && JSON::PP::is_bool($reply->{ok});
    die "no reason: $line" unless $reply->{ok} || length $reply->{reason};
    return $reply;
}

sub ask {
    my ($self, $line) = @_;
    $self->send_lines($line);
    return $self->reply;
}

sub sign_in {
    my ($self) = @_;
    $self->ask($_) for '{"cmd":"idle"}', '{"cmd":"click","id":20102}',
        '{"cmd":"type","text":"demo"}', '{"cmd":"key","key":"Enter"}', '{"cmd":"idle"}';
}

# Waits for its end; what it ended with, as $? has it.
sub ended {
    my ($self) = @_;
    close $self->{to};
    close $self->{from};
    waitpid $self->{pid}, 0;
    return $?;
}

1;
